#include "base/whole_file.h"
#include "drafting/view.h"
#include "outputs/paint_surface.h"
#include "outputs/picture.h"

#include <cairo.h>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

namespace {

namespace fs = std::filesystem;

struct Folder {
  fs::path Path;
  Folder() {
    Path = fs::path(testing::TempDir()) /
           ("picture_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::remove_all(Path);
    fs::create_directories(Path);
  }
  ~Folder() { fs::remove_all(Path); }
  std::string operator/(const char *name) const { return (Path / name).string(); }
};

std::string Bytes(const std::string &path) {
  std::string bytes;
  EXPECT_EQ(ReadWhole(path, bytes), "");
  return bytes;
}

// Tags of a page of markup pair off; a declaration, comments and empty tags stand alone.
bool TagsPair(const std::string &text) {
  std::vector<std::string> open;
  for (std::size_t at = text.find('<'); at != std::string::npos; at = text.find('<', at + 1)) {
    const std::size_t end = text.find('>', at);
    if (end == std::string::npos) return false;
    const std::string tag = text.substr(at + 1, end - at - 1);
    if (tag.empty() || tag[0] == '?' || tag[0] == '!' || tag.back() == '/') continue;
    const std::string name = tag.substr(tag[0] == '/', tag.find_first_of(" \n\t") - (tag[0] == '/'));
    if (tag[0] != '/') {
      open.push_back(name);
    } else {
      if (open.empty() || open.back() != name) return false;
      open.pop_back();
    }
  }
  return open.empty();
}

struct Image {
  std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> Surface;
  explicit Image(const std::string &path)
      : Surface(cairo_image_surface_create_from_png(path.c_str()), cairo_surface_destroy) {
    EXPECT_EQ(cairo_surface_status(Surface.get()), CAIRO_STATUS_SUCCESS);
  }
  int Width() const { return cairo_image_surface_get_width(Surface.get()); }
  int Height() const { return cairo_image_surface_get_height(Surface.get()); }
  std::uint32_t At(double x, double y) const { // red in the high byte
    const unsigned char *data = cairo_image_surface_get_data(Surface.get());
    const auto *row = reinterpret_cast<const std::uint32_t *>(
        data + static_cast<int>(y) * cairo_image_surface_get_stride(Surface.get()));
    return row[static_cast<int>(x)] & 0xFFFFFF;
  }
};

int Distance(std::uint32_t a, std::uint32_t b) {
  int most = 0;
  for (const int shift : {0, 8, 16})
    most = std::max(most, std::abs(static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255)));
  return most;
}

std::uint32_t Rgb(std::uint32_t redLow) { return (redLow & 255) << 16 | (redLow & 0xFF00) | redLow >> 16; }

Design Square(double half, double diameter = 100) {
  Design design;
  SetDimensions(design.Doc, diameter, 300, 20, 3);
  const double c[] = {-half, -half, half, -half, half, half, -half, half, -half, -half};
  for (int i = 0; i < 8; i += 2) AppendRow(design.Table, MakeLine(c[i], c[i + 1], c[i + 2], c[i + 3]));
  return design;
}

DrawSurface Drawn(Design &design, double width, double height) {
  DrawSurface s;
  s.PixelWidth = width;
  s.PixelHeight = height;
  ZoomReset(s, design.Doc);
  Redraw(s, design);
  return s;
}

// Concentric circles of a tube that burns from radius 10 to 50.
BurnRun TubeRun(int steps) {
  BurnRun run;
  run.GrainRadius = 50;
  run.BurnIncrement = 40.0 / steps;
  run.StepCount = static_cast<std::int16_t>(steps);
  for (int i = 0; i < steps; ++i) {
    const double distance = (i + 0.5) * run.BurnIncrement;
    run.StepDist.push_back(distance);
    OutlineRow row;
    row.EntType = CircleType;
    row.Radius = static_cast<float>(10 + distance);
    run.Steps.Row.push_back(row);
    run.Steps.Start.push_back(run.Steps.Row.size());
  }
  run.LastLiveDist = 40;
  run.MaxBurnArea = 123456.7, run.MaxKn = 321.5, run.ApAt = 4, run.VolumeLoading = 0.96, run.Neutrality = 0.6;
  run.TouchDist = 40;
  run.HasThroat = true;
  return run;
}

Design Tube() {
  Design design;
  SetDimensions(design.Doc, 100, 300, 20, 3);
  AppendRow(design.Table, MakeCircle(0, 0, 10));
  return design;
}

TEST(Picture, EveryFormIsWhatItSays) {
  const Folder folder;
  Design design = Square(20);
  const DrawSurface s = Drawn(design, 640, 480);
  ASSERT_EQ(WritePicture(s, PictureForm::Png, 640, 480, folder / "a.png"), "");
  ASSERT_EQ(WritePicture(s, PictureForm::Svg, 640, 480, folder / "a.svg"), "");
  ASSERT_EQ(WritePicture(s, PictureForm::Pdf, 640, 480, folder / "a.pdf"), "");
  const Image image(folder / "a.png");
  EXPECT_EQ(image.Width(), 640);
  EXPECT_EQ(image.Height(), 480);
  const std::string svg = Bytes(folder / "a.svg"), pdf = Bytes(folder / "a.pdf");
  EXPECT_TRUE(svg.starts_with("<?xml"));
  EXPECT_TRUE(TagsPair(svg));
  EXPECT_NE(svg.find("width=\"640px\" height=\"480px\""), std::string::npos);
  EXPECT_TRUE(pdf.starts_with("%PDF-"));
  EXPECT_NE(pdf.find("%%EOF"), std::string::npos);
}

TEST(Picture, PropellantIsTheDiscLessTheCore) {
  const Folder folder;
  constexpr std::uint32_t propellant = 0xF2E2C4, white = 0xFFFFFF;
  struct {
    double Half;
    std::uint32_t Beside, Corner; // at 30 mm to the right, and outside the wall at (45, 45)
  } const rows[] = {{20, propellant, white}, {40, white, white}, {70, white, white}};
  for (const auto &row : rows) {
    Design design = Square(row.Half);
    ASSERT_EQ(WritePicture(Drawn(design, 520, 520), PictureForm::Png, 520, 520, folder / "a.png"), "");
    const Image image(folder / "a.png"); // 5 pixels to the millimetre
    EXPECT_EQ(image.At(260, 260), white) << row.Half;
    EXPECT_EQ(image.At(260 + 5 * 30, 263), row.Beside) << row.Half;
    EXPECT_EQ(image.At(260 + 5 * 45, 260 - 5 * 45), row.Corner) << row.Half;
    EXPECT_EQ(image.At(260 + 5 * 45, 263), row.Half < 70 ? propellant : white) << row.Half;
  }
  Design open = Square(20);
  DeleteRow(open.Table, 0);
  ASSERT_EQ(WritePicture(Drawn(open, 520, 520), PictureForm::Png, 520, 520, folder / "a.png"), "");
  EXPECT_EQ(Image(folder / "a.png").At(260 + 5 * 30, 263), white);
}

TEST(Picture, ContoursTakeTheColourOfTheirDistance) {
  const Folder folder;
  Design design = Tube();
  BurnRun run = TubeRun(8); // contours at 2.5, 7.5 ... 37.5 mm
  design.Doc.SimIncrementDisplay = 2;
  OutlineRow nothing; // an arc of no sweep is not a whole turn
  nothing.EntType = ArcType;
  nothing.Radius = 30;
  nothing.StartAngle = nothing.EndAngle = 1.5f;
  run.Steps.Row.push_back(nothing);
  ++run.Steps.Start.back();
  ASSERT_EQ(WriteBurnPicture(design, run, PictureForm::Png, folder / "b.png"), "");
  const Image image(folder / "b.png");
  const double centre = image.Height() / 2.0, scale = image.Height() * (760.0 / 840) / 101;
  const auto nearest = [&](double radius, std::uint32_t colour) {
    int best = 255;
    for (double off = -1.5; off <= 1.5; off += 0.5)
      best = std::min(best, Distance(image.At(centre + radius * scale + off, centre), colour));
    return best;
  };
  for (const int step : {2, 4, 6, 8}) {
    const double distance = (step - 0.5) * 5;
    EXPECT_LT(nearest(10 + distance, Rgb(Viridis(distance / 40))), 40) << distance;
  }
  EXPECT_EQ(nearest(10 + 12.5, 0xF2E2C4), 0); // step 3 is not shown
  EXPECT_EQ(image.At(centre + 30 * scale, centre), 0xF2E2C4u);
  EXPECT_LT(nearest(50, 0x33414E), 40);
  EXPECT_LT(nearest(10, 0x1B4F8F), 60);
  EXPECT_EQ(image.At(centre, centre), 0xFFFFFFu);
}

TEST(Picture, CloseContoursMakeAnEvenGround) {
  const Folder folder;
  const Design design = Tube();
  ASSERT_EQ(WriteBurnPicture(design, TubeRun(800), PictureForm::Png, folder / "b.png"), "");
  const Image image(folder / "b.png");
  const double centre = image.Height() / 2.0, scale = image.Height() * (760.0 / 840) / 101;
  // Greener than red and bluish by the middle, yellow at the wall: nowhere the bare propellant.
  for (double radius = 12; radius < 49; radius += 0.5)
    EXPECT_GT(Distance(image.At(centre + radius * scale, centre), 0xF2E2C4), 25) << radius;
}

TEST(Picture, AnyNameAndAnyFiguresFit) {
  const Folder folder;
  Design design = Tube();
  BurnRun run = TubeRun(8);
  for (const std::string &name : {std::string("/a/b/\xFF\xFE\x01<&>\".mvd"), std::string(400, 'W') + ".mvd",
                                  std::string("Gr\u00e4\u00f6\u00dfe \u4e2d\u6587.mvd"), std::string()}) {
    design.CurrentFile = name;
    for (const PictureForm form : {PictureForm::Svg, PictureForm::Pdf, PictureForm::Png})
      EXPECT_EQ(WriteBurnPicture(design, run, form, folder / "c"), "");
    ASSERT_EQ(WriteBurnPicture(design, run, PictureForm::Svg, folder / "c"), "");
    EXPECT_TRUE(TagsPair(Bytes(folder / "c")));
  }
  run.MaxBurnArea = 1e15;
  design.Doc.GrainLength = 1e30f;
  ASSERT_EQ(WriteBurnPicture(design, run, PictureForm::Png, folder / "c.png"), "");
  const Image image(folder / "c.png");
  for (int y = 0; y < image.Height(); ++y)
    for (int x = image.Width() - 30; x < image.Width(); ++x)
      ASSERT_EQ(image.At(x, y), 0xFFFFFFu) << x << ' ' << y;
}

TEST(Picture, AFailureLeavesWhatWasThere) {
  const Folder folder;
  Design design = Square(20);
  const DrawSurface s = Drawn(design, 100, 100);
  ASSERT_EQ(WriteWhole(folder / "kept.png", "old"), "");
  EXPECT_NE(WritePicture(s, PictureForm::Png, 0, 100, folder / "kept.png"), "");
  EXPECT_NE(WritePicture(s, PictureForm::Png, 40000, 100, folder / "kept.png"), "");
  EXPECT_EQ(Bytes(folder / "kept.png"), "old");
  fs::create_directory(folder.Path / "folder.svg");
  const std::string trouble = WritePicture(s, PictureForm::Svg, 100, 100, folder / "folder.svg");
  EXPECT_NE(trouble.find("folder.svg"), std::string::npos);
  EXPECT_TRUE(fs::is_directory(folder.Path / "folder.svg"));
  EXPECT_NE(WritePicture(s, PictureForm::Svg, 100, 100, folder / "kept.png/under.svg"), "");
  EXPECT_NE(WriteBurnPicture(Tube(), TubeRun(8), PictureForm::Pdf, folder / "nowhere/a.pdf"), "");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path), fs::directory_iterator()), 2);
}

TEST(Picture, ViridisAndItsScale) {
  EXPECT_EQ(Rgb(Viridis(0)), 0x440154u);
  EXPECT_EQ(Rgb(Viridis(1)), 0xFDE725u);
  EXPECT_EQ(Viridis(-3), Viridis(0));
  EXPECT_EQ(Viridis(std::nan("")), Viridis(0));
  double before = 0; // perceptual: the lightness only rises
  for (int i = 0; i <= 100; ++i) {
    const std::uint32_t c = Viridis(i / 100.0);
    const double light = 0.2126 * (c & 255) + 0.7152 * (c >> 8 & 255) + 0.0722 * (c >> 16 & 255);
    EXPECT_GE(light, before - 0.3) << i;
    before = light;
  }
  struct {
    double Span, Most, Step;
  } const rows[] = {{30, 8, 5}, {8, 8, 1}, {8.1, 8, 2}, {0.7, 7, 0.1}, {1234, 6, 500}, {0.0042, 8, 0.001}};
  for (const auto &row : rows)
    EXPECT_NEAR(RoundStep(row.Span, row.Most), row.Step, row.Step * 1e-9) << row.Span;
}

} // namespace
