#include "dxf/dxf_writer.h"

#include "base/number_text.h"
#include "base/whole_file.h"
#include "dxf/fixed_groups.h"

#include <cmath>
#include <string_view>

namespace {
constexpr char Decimals[] = "0.0000000000", Zero[] = "0.0000000000";

struct Stream {
  std::string Bytes;
};
void Line(Stream &out, std::string_view text) { (out.Bytes += text) += "\r\n"; }
void Put(Stream &out, int code, std::string_view value) {
  Line(out, std::to_string(code));
  Line(out, value);
}
void Put(Stream &out, int code, double value) { Put(out, code, FormatMask(value, Decimals)); }

void OpenSection(Stream &out, std::string_view name) {
  Line(out, "SECTION");
  Put(out, 2, name);
}

// The extents: the grain's circle and one millimetre about it.
std::string Extent(const Design &design, bool most) {
  const float edge = design.Doc.GrainRadius + 1;
  return FormatMask(most ? edge : -edge, Decimals);
}

void PutHeader(Stream &out, const Design &design) {
  for (const HeaderVariable &v : HeaderVariables()) {
    Put(out, 9, v.Name);
    for (const FixedGroup &g : v.Group) {
      if (g.Code < 0) break;
      if (g.Value == LeastExtent || g.Value == MostExtent)
        Put(out, g.Code, Extent(design, g.Value == MostExtent));
      else
        Put(out, g.Code, g.Value);
    }
  }
}

void PutPlainHeader(Stream &out, const Design &design) {
  Put(out, 9, "$ACADVER");
  Put(out, 1, "AC1009");
  Put(out, 9, "$INSBASE");
  for (const int code : {10, 20, 30}) Put(out, code, Zero);
  for (const bool most : {false, true}) {
    Put(out, 9, most ? "$EXTMAX" : "$EXTMIN");
    for (const int code : {10, 20}) Put(out, code, Extent(design, most));
    Put(out, 30, Zero);
  }
  Put(out, 9, "$LUNITS");
  Put(out, 70, "2");
}

void PutPlainTables(Stream &out) {
  const auto open = [&](const char *name) {
    Put(out, 0, "TABLE");
    Put(out, 2, name);
  };
  open("LTYPE");
  Put(out, 70, "1");
  Put(out, 0, "LTYPE");
  Put(out, 2, "CONTINUOUS");
  Put(out, 70, "64");
  Put(out, 3, "Solid Line");
  Put(out, 72, "65");
  Put(out, 73, "0");
  Put(out, 40, Zero);
  Put(out, 0, "ENDTAB");
  open("LAYER");
  Put(out, 70, "2");
  for (const char *layer : {"0", DxfLayer}) {
    Put(out, 0, "LAYER");
    Put(out, 2, layer);
    Put(out, 70, "64");
    Put(out, 62, "7");
    Put(out, 6, "CONTINUOUS");
  }
  Put(out, 0, "ENDTAB");
  open("STYLE");
  Put(out, 70, "1");
  Put(out, 0, "STYLE");
  Put(out, 2, "STANDARD");
  Put(out, 70, "64");
  Put(out, 40, Zero);
  Put(out, 41, 1.0);
  Put(out, 50, Zero);
  Put(out, 71, "0");
  Put(out, 42, 1.0);
  Put(out, 3, "txt");
  Put(out, 4, "");
  Put(out, 0, "ENDTAB");
}

void OpenEntity(Stream &out, std::string_view name) { // behind its code line
  Line(out, name);
  Put(out, 8, DxfLayer);
  Put(out, 6, "CONTINUOUS");
  Put(out, 62, "3");
}

template <class Number>
void PutCircle(Stream &out, double x, double y, Number radius) {
  Put(out, 10, x);
  Put(out, 20, y);
  Put(out, 30, Zero);
  Put(out, 40, FormatMask(radius, Decimals));
}

double Degrees(double angle) { return (angle / Pi) * 180; }

void PutEntity(Stream &out, const Entity &row) {
  switch (row.EntType) {
  case ArcType:
    OpenEntity(out, "ARC");
    PutCircle(out, row.CenterX, row.CenterY, row.Radius);
    Put(out, 50, Degrees(row.StartAngle));
    Put(out, 51, Degrees(row.EndAngle));
    break;
  case CircleType:
    OpenEntity(out, "CIRCLE");
    PutCircle(out, row.CenterX, row.CenterY, row.Radius);
    break;
  case LineType:
    OpenEntity(out, "LINE");
    Put(out, 10, row.X1);
    Put(out, 20, row.Y1);
    Put(out, 30, Zero);
    Put(out, 11, row.X2);
    Put(out, 21, row.Y2);
    Put(out, 31, Zero);
    break;
  default: return;
  }
  Line(out, "0");
}

// Each entity ends with the code line of what follows.
void Save_Entities(Stream &out, const Design &design, bool includeGrain) {
  for (int i = 0; i <= design.Table.EntCount; ++i) PutEntity(out, RowAt(design.Table, i));
  if (!includeGrain) return;
  OpenEntity(out, "CIRCLE");
  PutCircle(out, 0, 0, design.Doc.GrainRadius);
  Line(out, "0");
}

std::string NotFinite(const Design &design) {
  constexpr struct {
    double Entity::*Value;
    const char *Name;
    int Types;
  } fields[] = {{&Entity::X1, "X1", LineType},
                {&Entity::Y1, "Y1", LineType},
                {&Entity::X2, "X2", LineType},
                {&Entity::Y2, "Y2", LineType},
                {&Entity::CenterX, "CenterX", CircleType | ArcType},
                {&Entity::CenterY, "CenterY", CircleType | ArcType},
                {&Entity::Radius, "Radius", CircleType | ArcType},
                {&Entity::StartAngle, "StartAngle", ArcType},
                {&Entity::EndAngle, "EndAngle", ArcType}};
  if (!std::isfinite(design.Doc.GrainRadius)) return "GrainRadius is not a finite number";
  for (int i = 0; i <= design.Table.EntCount; ++i)
    for (const auto &field : fields)
      if ((RowAt(design.Table, i).EntType & field.Types) &&
          !std::isfinite(RowAt(design.Table, i).*field.Value))
        return "entity " + std::to_string(i + 1) + ": " + field.Name + " is not a finite number";
  return {};
}
} // namespace

std::string DxfText(const Design &design, const DxfChoice &choice) {
  const bool plain = choice.Form == DxfForm::PlainR12;
  Stream out;
  Line(out, plain ? "0" : "  0"); // the one code line that is padded
  OpenSection(out, "HEADER");
  plain ? PutPlainHeader(out, design) : PutHeader(out, design);
  Put(out, 0, "ENDSEC");
  Line(out, "0");
  OpenSection(out, "TABLES");
  if (plain)
    PutPlainTables(out);
  else
    for (const FixedGroup &g : TableGroups()) Put(out, g.Code, g.Value);
  Put(out, 0, "ENDSEC");
  Line(out, "0");
  OpenSection(out, "BLOCKS");
  Put(out, 0, "ENDSEC");
  Line(out, "0");
  OpenSection(out, "ENTITIES");
  Line(out, "0");
  Save_Entities(out, design, choice.IncludeGrain);
  Line(out, "ENDSEC");
  Put(out, 0, "EOF");
  return out.Bytes;
}

std::string WriteDxfFile(const std::string &path, const Design &design, const DxfChoice &choice) {
  if (const std::string trouble = NotFinite(design); !trouble.empty())
    return path + ": cannot be written: " + trouble;
  return WriteWhole(path, DxfText(design, choice));
}
