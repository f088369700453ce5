#include "outputs/bitmap.h"

#include <cstdint>
#include <cstdlib>

namespace {
void Put16(std::string &to, std::uint32_t value) {
  to += static_cast<char>(value & 0xff);
  to += static_cast<char>(value >> 8 & 0xff);
}
void Put32(std::string &to, std::uint32_t value) {
  Put16(to, value & 0xffff);
  Put16(to, value >> 16);
}
std::uint32_t Get16(std::string_view from, std::size_t at) {
  const auto byte = [&](std::size_t i) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(from[i]));
  };
  return byte(at) | byte(at + 1) << 8;
}
std::uint32_t Get32(std::string_view from, std::size_t at) {
  return Get16(from, at) | Get16(from, at + 2) << 16;
}
} // namespace

bool IsWholeBitmap(std::string_view bytes) {
  constexpr std::size_t leastHeaders = 54;
  constexpr std::int64_t mostSide = 4096;
  if (bytes.size() < leastHeaders || !bytes.starts_with("BM")) return false;
  const auto width = static_cast<std::int32_t>(Get32(bytes, 18)),
             height = static_cast<std::int32_t>(Get32(bytes, 22));
  const std::int64_t rows = std::abs(static_cast<std::int64_t>(height)),
                     bits = Get16(bytes, 28); // top row first: below 0
  if (width < 1 || width > mostSide || rows < 1 || rows > mostSide) return false;
  if (bits != 1 && bits != 4 && bits != 8 && bits != 16 && bits != 24 && bits != 32) return false;
  constexpr std::uint32_t plain = 0, masked = 3;
  const std::uint32_t packing = Get32(bytes, 30), from = Get32(bytes, 10);
  if ((packing != plain && packing != masked) || Get32(bytes, 14) < 40 || from < leastHeaders) return false;
  const std::int64_t row = (width * bits + 31) / 32 * 4;
  return from + row * rows <= static_cast<std::int64_t>(bytes.size());
}

std::string BitmapBytes(cairo_surface_t *surface) {
  constexpr std::uint32_t fileHeader = 14, pictureHeader = 40, pixelsPerMetre = 3780;
  cairo_surface_flush(surface);
  const auto width = static_cast<std::uint32_t>(cairo_image_surface_get_width(surface));
  const auto height = static_cast<std::uint32_t>(cairo_image_surface_get_height(surface));
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface));
  const unsigned char *const data = cairo_image_surface_get_data(surface);
  const std::uint32_t row = (3 * width + 3) / 4 * 4, size = row * height;
  std::string bytes;
  bytes.reserve(fileHeader + pictureHeader + size);
  bytes += "BM";
  Put32(bytes, fileHeader + pictureHeader + size);
  Put32(bytes, 0);
  Put32(bytes, fileHeader + pictureHeader);
  Put32(bytes, pictureHeader);
  Put32(bytes, width);
  Put32(bytes, height);
  Put16(bytes, 1);
  Put16(bytes, 24);
  Put32(bytes, 0);
  Put32(bytes, size);
  Put32(bytes, pixelsPerMetre);
  Put32(bytes, pixelsPerMetre);
  Put32(bytes, 0);
  Put32(bytes, 0);
  for (std::uint32_t y = height; y-- > 0;) {
    // A pixel is a 32-bit number, red above green above blue, in the machine's byte order.
    const auto *pixel = reinterpret_cast<const std::uint32_t *>(data + y * stride);
    for (std::uint32_t x = 0; x < width; ++x)
      for (const int shift : {0, 8, 16}) bytes += static_cast<char>(pixel[x] >> shift & 0xff);
    bytes.append(row - 3 * width, '\0');
  }
  return bytes;
}
