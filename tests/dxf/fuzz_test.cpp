#include "base/whole_file.h"
#include "dxf/drawings.h"
#include "dxf/dxf_writer.h"
#include "rounds.h"

#include <cmath>
#include <random>

namespace {
// Any bytes: one message that names the file, or a sound design.
TEST(DxfFuzz, AnyBytesGiveADesignOrOneMessage) {
  std::vector<std::string> seeds;
  for (const char *name : {"r12_blocks", "r2000_mirrored_inches", "r2010_curves", "r2018_metres"}) {
    std::string bytes;
    ASSERT_EQ(ReadWhole(std::string(TEST_DATA) + "/dxf/" + name + ".dxf", bytes), "");
    const std::size_t body = bytes.find("BLOCKS"), entities = bytes.find("ENTITIES");
    ASSERT_NE(entities, bytes.npos);
    seeds.push_back(bytes);
    seeds.push_back("0\nSECTION\n2\n" + bytes.substr(body)); // where most of the meaning is
    seeds.push_back("0\nSECTION\n2\n" + bytes.substr(entities));
  }
  const char *const words[] = {"nan",    "-1",     "0",        "1e300",   "1e-300", "-0",  "INSERT",
                               "SPLINE", "VERTEX", "40",       "10",      "71",     "42",  "2147483647",
                               "ENDSEC", "",       "POLYLINE", "ELLIPSE", "1e9",    "0.5", "16"};
  std::mt19937_64 random(Seed());
  const auto below = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
  int read = 0;
  for (int round = 0; round < 400 * Rounds(); ++round) {
    std::string bytes = seeds[below(seeds.size())];
    for (std::size_t change = below(6); change-- > 0 && !bytes.empty();) {
      const std::size_t at = below(bytes.size()), line = bytes.rfind('\n', at) + 1;
      const std::size_t end = std::min(bytes.find('\n', at), bytes.size());
      switch (below(5)) {
      case 0: bytes[at] = static_cast<char>(random()); break;
      case 1: bytes.resize(at); break;
      case 2: bytes.erase(at, below(40)); break;
      case 3: bytes.insert(line, bytes.substr(below(bytes.size()), below(400))); break;
      default: bytes.replace(line, end > line ? end - line : 0, words[below(std::size(words))]);
      }
    }
    const Imported in = ImportText(bytes);
    if (!in.Trouble.empty()) {
      EXPECT_EQ(in.Trouble.rfind("x.dxf: line ", 0), 0u) << in.Trouble;
      EXPECT_EQ(in.Made.Table.EntCount, -1);
      continue;
    }
    ++read;
    for (int i = 0; i <= in.Made.Table.EntCount; ++i) {
      const Entity &row = in.Row(i);
      ASSERT_TRUE(row.EntType == LineType || row.EntType == CircleType || row.EntType == ArcType);
      for (const double v : {row.X1, row.Y1, row.X2, row.Y2, row.CenterX, row.CenterY, row.Radius,
                             row.StartAngle, row.EndAngle})
        ASSERT_TRUE(std::isfinite(v));
    }
    EXPECT_NE(DxfText(in.Made, {}), "");
  }
  EXPECT_GT(read, 40);
}
} // namespace
