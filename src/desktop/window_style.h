#pragma once
class QStyle;

QStyle *MakeWindowStyle(); // Fusion with our icons and habits; made before any window; the caller owns it
