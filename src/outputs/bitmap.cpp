#include "outputs/bitmap.h"

#include <cstdint>

namespace {
void Put16(std::string &to, std::uint32_t value) {
  to += static_cast<char>(value & 0xff);
  to += static_cast<char>(value >> 8 & 0xff);
}
void Put32(std::string &to, std::uint32_t value) {
  Put16(to, value & 0xffff);
  Put16(to, value >> 16);
}
} // namespace

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
