#pragma once
class QStyle;

QStyle *MakeWindowStyle(); // Fusion with our icons and habits; the caller owns it
