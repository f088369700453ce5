// Reading records: place and words of a refusal, any bytes without harm, what was written comes back.
#include "base/text_record.h"
#include "rounds.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

TEST(RecordReader, ARefusalNamesThePlaceAndWhatStoodThere) {
  const struct {
    const char *Bytes;
    int Before; // fields taken as texts first
    const char *Number, *Whole, *Truth;
    int Line, Field;
  } rows[] = {
      {"1,2\r\n3,inf\r\n", 3, "expected a finite number, found \"inf\"",
       "expected a 32-bit whole number, found \"inf\"", "expected #TRUE# or #FALSE#, found \"inf\"", 2, 2},
      {"1\n\n", 1, "expected a finite number, found an empty field", nullptr, nullptr, 2, 1},
      {"1,", 1, "expected a finite number, found an empty field", nullptr, nullptr, 1, 2},
      {"1\r\n", 1, "expected a finite number, found the end of the file", nullptr, nullptr, 2, 1},
      {"", 0, "expected a finite number, found the end of the file", nullptr, nullptr, 1, 1},
      {"\"2\"x,3", 0, "expected a quote that closes right before a comma or the line end, found \"\"2\"x\"",
       nullptr, nullptr, 1, 1},
      {"a\x01\xff\r\n", 0, "expected a finite number, found \"a??\"", nullptr, nullptr, 1, 1},
      {"1e400", 0, "expected a finite number, found \"1e400\"", nullptr,
       "expected #TRUE# or #FALSE#, found \"1e400\"", 1, 1},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.Bytes);
    const auto refused = [&](auto value, const char *trouble) {
      if (!trouble) return;
      RecordReader r{row.Bytes};
      std::string skipped;
      for (int i = 0; i < row.Before; ++i) ASSERT_TRUE(Take(r, skipped));
      EXPECT_FALSE(Take(r, value));
      EXPECT_EQ(r.Trouble, trouble);
      EXPECT_EQ(r.Line, row.Line);
      EXPECT_EQ(r.Field, row.Field);
    };
    refused(0.0, row.Number);
    refused(0, row.Whole);
    refused(false, row.Truth);
  }
}

TEST(RecordReader, WholeNumbersAndNarrowOnesKeepTheirRange) {
  const auto whole = [](const char *bytes) {
    RecordReader r{bytes};
    int value = -7;
    return Take(r, value) ? std::to_string(value) : "refused";
  };
  EXPECT_EQ(whole("3.0"), "3");
  EXPECT_EQ(whole("1E3"), "1000");
  EXPECT_EQ(whole("-2147483648"), "-2147483648");
  for (const char *bytes : {"2147483648", "2.5", "-2147483649", "1e300", "", "#TRUE#"})
    EXPECT_EQ(whole(bytes), "refused");
  RecordReader r{"1e39,3e38"};
  float value = 0;
  EXPECT_FALSE(Take(r, value));
  EXPECT_TRUE(Take(r, value));
}

TEST(RecordReader, CountsFieldsWithoutMoving) {
  const struct {
    const char *Bytes;
    int Fields;
  } rows[] = {{"", 0},    {"\r\n1,2", 1}, {"1,2\r\n3", 2}, {"1,", 2}, {"\"a,b\",c\n", 2}, {"\"open,b\nc", 1},
              {",,\n", 3}};
  for (const auto &row : rows) EXPECT_EQ(FieldsInRecord(RecordReader{row.Bytes}), row.Fields) << row.Bytes;
  RecordReader r{"1,2,3\n4\n"};
  double value = 0;
  ASSERT_TRUE(Take(r, value));
  EXPECT_EQ(FieldsInRecord(r), 2) << "of the rest of the record";
}

TEST(RecordReader, AnyBytesEndWithoutHarm) {
  std::mt19937_64 random(Seed());
  const std::string letters = "0123456789.,-+eED\"#TRUEFALSE \t\r\n";
  for (int i = 0; i < 20000 * Rounds(); ++i) {
    std::string bytes;
    for (auto left = random() % 60; left > 0; --left)
      bytes += random() % 20 ? letters[random() % letters.size()] : static_cast<char>(random());
    RecordReader r{bytes};
    std::size_t fields = 0;
    const int counted = FieldsInRecord(r);
    int onFirst = 0;
    while (!AtEnd(r)) {
      std::string text;
      double number = 0;
      bool truth = false;
      int whole = 0;
      const auto kind = random() % 4;
      const bool taken = kind == 0   ? Take(r, text)
                         : kind == 1 ? Take(r, number)
                         : kind == 2 ? Take(r, truth)
                                     : Take(r, whole);
      EXPECT_EQ(taken || !r.Trouble.empty(), true);
      onFirst += r.Line == 1;
      ASSERT_LE(++fields, bytes.size() + 1);
    }
    EXPECT_EQ(onFirst, counted) << bytes;
  }
}

TEST(RecordWriter, WhatIsPutIsTaken) {
  RecordWriter w;
  Put(w, 1.0 / 3);
  Put(w, -2.5f);
  Put(w, std::numeric_limits<int>::min());
  Put(w, true);
  Put(w, "a, b");
  EndRecord(w);
  Put(w, std::string_view(""));
  EndRecord(w);
  RecordReader r{w.Bytes};
  double a = 0;
  float b = 0;
  int c = 0;
  bool d = false;
  std::string e, f = "x";
  ASSERT_TRUE(Take(r, a) && Take(r, b) && Take(r, c) && Take(r, d) && Take(r, e) && Take(r, f) && AtEnd(r));
  EXPECT_DOUBLE_EQ(a, .333333333333333);
  EXPECT_EQ(b, -2.5f);
  EXPECT_EQ(c, std::numeric_limits<int>::min());
  EXPECT_TRUE(d);
  EXPECT_EQ(e, "a, b");
  EXPECT_EQ(f, "");
}

} // namespace
