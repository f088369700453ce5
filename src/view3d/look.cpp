#include "view3d/look.h"

#include "base/text_record.h"
#include "base/whole_file.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr const char *Heading = "Look3D_1";
constexpr const char *Paints[] = {"PropellantColor", "CutFaceColor",      "BurningColor", "ExposedEndColor",
                                  "LinerColor",      "InhibitedEndColor", "CoreColor"};
constexpr Paint PaintOrder[] = {Paint::Propellant, Paint::Cut,       Paint::Burning, Paint::Exposed,
                                Paint::Liner,      Paint::Inhibited, Paint::Core};
constexpr const char *Textures[] = {"PropellantTexture", "BurningTexture", "LinerTexture"};
constexpr int MostColour = 0xFFFFFF;
constexpr std::size_t MostPath = 4096;

// A reader that knows which file and value it is at.
struct Fields {
  const std::string &Path;
  RecordReader R;
  std::string Trouble;

  bool Refuse(const char *name, const std::string &why) {
    if (Trouble.empty())
      Trouble = Path + ": line " + std::to_string(R.Line) + ", field " + std::to_string(R.Field) + " (" +
                name + "): " + why;
    return false;
  }
  bool Name(const char *name) {
    std::string found;
    if (FieldsInRecord(R) != 2 || !R.AtLineStart) {
      ++R.Field; // nothing was taken: the field that is about to come
      return Refuse(name, "expected a line of this name and its value");
    }
    if (!Take(R, found)) return Refuse(name, R.Trouble);
    return found == name || Refuse(name, "expected this name, found \"" + found.substr(0, 40) + "\"");
  }
  bool Colour(const char *name, int least, int &value) {
    if (!Name(name)) return false;
    if (!Take(R, value)) return Refuse(name, R.Trouble);
    return (value >= least && value <= MostColour) ||
           Refuse(name, "expected a colour from " + std::to_string(least) + " to 16777215, found " +
                            std::to_string(value));
  }
};

bool TakeAll(Fields &f, Look3d &look) {
  std::string heading;
  if (!Take(f.R, heading) || heading != Heading)
    return f.Refuse("heading", std::string("expected \"") + Heading + "\"");
  int value = 0;
  for (std::size_t i = 0; i < PaintCount; ++i) {
    if (!f.Colour(Paints[i], 0, value)) return false;
    look.Colour[static_cast<std::size_t>(PaintOrder[i])] = static_cast<std::uint32_t>(value);
  }
  if (!f.Colour("Background", -1, value)) return false;
  look.OwnGround = value >= 0;
  if (look.OwnGround) look.Ground = static_cast<std::uint32_t>(value);
  for (std::size_t i = 0; i < TextureCount; ++i) {
    if (!f.Name(Textures[i])) return false;
    std::string &path = look.Bitmap[i];
    if (!Take(f.R, path)) return f.Refuse(Textures[i], f.R.Trouble);
    if (path.size() > MostPath ||
        std::any_of(path.begin(), path.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }))
      return f.Refuse(Textures[i], "this is no path");
  }
  if (!f.Name("LinerThickness")) return false;
  if (!Take(f.R, look.Liner)) return f.Refuse("LinerThickness", f.R.Trouble);
  if (!(look.Liner >= 0 && look.Liner <= MostLiner))
    return f.Refuse("LinerThickness", "expected 0 to 100000 mm");
  if (AtEnd(f.R)) return true;
  ++f.R.Field;
  return f.Refuse("end", "expected nothing more");
}
} // namespace

std::string ReadLook(const std::string &path, Look3d &look) {
  if (!FileExists(path)) return {};
  std::string bytes;
  if (const std::string trouble = ReadWhole(path, bytes); !trouble.empty()) return trouble;
  const std::size_t last = bytes.find_last_not_of(" \t\r\n");
  bytes.resize(last == bytes.npos ? 0 : last + 1);
  Fields fields{path, {bytes}, {}};
  Look3d found;
  if (!TakeAll(fields, found)) return fields.Trouble;
  look = found;
  return {};
}

std::string WriteLook(const std::string &path, const Look3d &look) {
  for (const std::string &bitmap : look.Bitmap)
    if (bitmap.find_first_of("\"\r\n") != bitmap.npos)
      return path + ": cannot be written: the file name " + bitmap + " holds a quotation mark or a line end";
  RecordWriter w;
  Put(w, Heading);
  EndRecord(w);
  const auto line = [&w](const char *name, auto value) {
    Put(w, name);
    Put(w, value);
    EndRecord(w);
  };
  for (std::size_t i = 0; i < PaintCount; ++i)
    line(Paints[i], static_cast<int>(look.Colour[static_cast<std::size_t>(PaintOrder[i])]));
  line("Background", look.OwnGround ? static_cast<int>(look.Ground) : -1);
  for (std::size_t i = 0; i < TextureCount; ++i) line(Textures[i], std::string_view(look.Bitmap[i]));
  line("LinerThickness", look.Liner);
  return WriteWhole(path, w.Bytes);
}
