#include "view3d/mesh_files.h"

#include "base/whole_file.h"

#include <array>
#include <bit>
#include <cmath>
#include <fmt/format.h>

static_assert(std::endian::native == std::endian::little, "both formats are little-endian");

namespace {

template <class T>
void Put(std::string &to, T value) {
  to.append(reinterpret_cast<const char *>(&value), sizeof value);
}

std::uint32_t Crc32(std::string_view bytes) {
  static const std::array<std::uint32_t, 256> table = [] {
    std::array<std::uint32_t, 256> t{};
    for (std::uint32_t i = 0; i < 256; ++i) {
      std::uint32_t c = i;
      for (int k = 0; k < 8; ++k) c = c & 1 ? 0xEDB88320u ^ c >> 1 : c >> 1;
      t[i] = c;
    }
    return t;
  }();
  std::uint32_t crc = 0xFFFFFFFFu;
  for (const char c : bytes) crc = table[(crc ^ static_cast<unsigned char>(c)) & 0xff] ^ crc >> 8;
  return ~crc;
}

struct ZipEntry {
  std::string Name, Bytes;
};

// An archive of stored entries, dated 1 January 1980: the same mesh gives the same bytes.
std::string ZipBytes(const std::vector<ZipEntry> &entries) {
  std::string zip, directory;
  for (const ZipEntry &e : entries) {
    const std::uint32_t at = static_cast<std::uint32_t>(zip.size());
    std::string head; // what both headers have in common
    Put<std::uint16_t>(head, 20);
    Put<std::uint16_t>(head, 0);
    Put<std::uint16_t>(head, 0);
    Put<std::uint16_t>(head, 0);
    Put<std::uint16_t>(head, 0x21);
    Put<std::uint32_t>(head, Crc32(e.Bytes));
    Put<std::uint32_t>(head, static_cast<std::uint32_t>(e.Bytes.size()));
    Put<std::uint32_t>(head, static_cast<std::uint32_t>(e.Bytes.size()));
    Put<std::uint16_t>(head, static_cast<std::uint16_t>(e.Name.size()));
    Put<std::uint16_t>(head, 0);
    Put<std::uint32_t>(zip, 0x04034b50);
    zip += head + e.Name + e.Bytes;
    Put<std::uint32_t>(directory, 0x02014b50);
    Put<std::uint16_t>(directory, 20);
    directory += head;
    Put<std::uint16_t>(directory, 0); // no comment, first disk, no attributes
    Put<std::uint32_t>(directory, 0);
    Put<std::uint32_t>(directory, 0);
    Put<std::uint32_t>(directory, at);
    directory += e.Name;
  }
  const std::uint32_t start = static_cast<std::uint32_t>(zip.size());
  zip += directory;
  Put<std::uint32_t>(zip, 0x06054b50);
  Put<std::uint32_t>(zip, 0);
  Put<std::uint16_t>(zip, static_cast<std::uint16_t>(entries.size()));
  Put<std::uint16_t>(zip, static_cast<std::uint16_t>(entries.size()));
  Put<std::uint32_t>(zip, static_cast<std::uint32_t>(directory.size()));
  Put<std::uint32_t>(zip, start);
  Put<std::uint16_t>(zip, 0);
  return zip;
}

std::string AsAttribute(const std::string &text) {
  std::string out;
  for (const char c : text) {
    if (c == '&')
      out += "&amp;";
    else if (c == '<')
      out += "&lt;";
    else if (c == '"')
      out += "&quot;";
    else
      out += static_cast<unsigned char>(c) < 32 || static_cast<unsigned char>(c) > 126 ? '_' : c;
  }
  return out;
}

std::string ModelXml(const Mesh &mesh, const std::string &name) {
  std::vector<std::uint32_t> number;
  const std::uint32_t count = WeldedIndices(mesh, number);
  std::string xml =
      fmt::format("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                  "<model unit=\"millimeter\" xml:lang=\"en-US\" "
                  "xmlns=\"http://schemas.microsoft.com/3dmanufacturing/core/2015/02\">\n"
                  "<metadata name=\"Application\">Morvandel</metadata>\n"
                  "<resources>\n<object id=\"1\" type=\"model\" name=\"{}\">\n<mesh>\n<vertices>\n",
                  AsAttribute(name));
  std::uint32_t next = 0;
  const auto to = std::back_inserter(xml);
  for (std::size_t i = 0; i < mesh.Vertex.size(); ++i) {
    if (number[i] != next) continue;
    ++next;
    const MeshVertex &v = mesh.Vertex[i];
    fmt::format_to(to, "<vertex x=\"{}\" y=\"{}\" z=\"{}\"/>\n", v.X, v.Y, v.Z);
  }
  xml += next == count ? "</vertices>\n<triangles>\n" : "";
  for (const MeshTriangle &t : mesh.Triangle)
    fmt::format_to(to, "<triangle v1=\"{}\" v2=\"{}\" v3=\"{}\"/>\n", number[t.A], number[t.B], number[t.C]);
  return xml + "</triangles>\n</mesh>\n</object>\n</resources>\n<build><item objectid=\"1\"/></build>\n"
               "</model>\n";
}

} // namespace

std::string StlBytes(const Mesh &mesh) {
  std::string bytes = "Morvandel, millimetres"; // not to begin with "solid", which tells the text form
  bytes.resize(80, ' ');
  bytes.reserve(84 + 50 * mesh.Triangle.size());
  Put<std::uint32_t>(bytes, static_cast<std::uint32_t>(mesh.Triangle.size()));
  for (const MeshTriangle &t : mesh.Triangle) {
    const MeshVertex *const corner[3] = {&mesh.Vertex[t.A], &mesh.Vertex[t.B], &mesh.Vertex[t.C]};
    const MeshVertex &a = *corner[0], &b = *corner[1], &c = *corner[2];
    const double ux = double{b.X} - a.X, uy = double{b.Y} - a.Y, uz = double{b.Z} - a.Z;
    const double vx = double{c.X} - a.X, vy = double{c.Y} - a.Y, vz = double{c.Z} - a.Z;
    const double x = uy * vz - uz * vy, y = uz * vx - ux * vz, z = ux * vy - uy * vx;
    const double l = std::sqrt(x * x + y * y + z * z), per = l > 0 ? 1 / l : 0;
    for (const double n : {x * per, y * per, z * per}) Put(bytes, static_cast<float>(n));
    for (const MeshVertex *v : corner)
      for (const float p : {v->X, v->Y, v->Z}) Put(bytes, p + 0.0f);
    Put<std::uint16_t>(bytes, 0);
  }
  return bytes;
}

std::string ThreeMfBytes(const Mesh &mesh, const std::string &name) {
  return ZipBytes(
      {{"[Content_Types].xml",
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
        "<Default Extension=\"rels\" "
        "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
        "<Default Extension=\"model\" "
        "ContentType=\"application/vnd.ms-package.3dmanufacturing-3dmodel+xml\"/>"
        "</Types>\n"},
       {"_rels/.rels",
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
        "<Relationship Target=\"/3D/3dmodel.model\" Id=\"rel0\" "
        "Type=\"http://schemas.microsoft.com/3dmanufacturing/2013/01/3dmodel\"/></Relationships>\n"},
       {"3D/3dmodel.model", ModelXml(mesh, name)}});
}

std::string WriteStl(const std::string &path, const Mesh &mesh) { return WriteWhole(path, StlBytes(mesh)); }

std::string WriteThreeMf(const std::string &path, const Mesh &mesh, const std::string &name) {
  return WriteWhole(path, ThreeMfBytes(mesh, name));
}
