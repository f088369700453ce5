#pragma once
#include "chance.h"
#include "macros/instruction_log.h"
#include "rounds.h"
#include "shell/grain_document.h"

#include <string>
#include <vector>

// What files of templates and lessons hold, at random.
struct FileMaker : Chance {
  explicit FileMaker(int round) { Source.seed(static_cast<unsigned>(Seed()) + static_cast<unsigned>(round)); }
  double Number() { return (Below(2000001) - 1000000) / 1000.0; }
  std::string Text() { // words of the files themselves among them
    static const std::vector<std::string> words{"PicInfo",
                                                "Rotation",
                                                "VariableNameCntr",
                                                "Next Macro",
                                                "999",
                                                "-1",
                                                "0",
                                                "a, (b) [2 .. 3]",
                                                "x;y",
                                                "2*R;pi",
                                                "ENTERKEY",
                                                "#TRUE#",
                                                "r\xC3\xA4"
                                                "dius",
                                                ""};
    return Of(words);
  }
  std::vector<Entity> Rows(int least = 0) {
    std::vector<Entity> rows;
    for (int i = least + Below(5); i > 0; --i)
      rows.push_back(Below(2) ? MakeLine(Number(), Number(), Number(), Number())
                              : MakeArc(Number(), Number(), 1 + Below(50), 0.25, 1.5));
    return rows;
  }
  Instruction Step() { return {Below(230), Number(), Number(), Number(), Text(), Below(5), Below(5)}; }
  std::string Broken(std::string text) {
    for (int hits = 1 + Below(3); hits > 0 && !text.empty(); --hits) {
      const auto at = static_cast<std::size_t>(Below(static_cast<int>(text.size())));
      switch (Below(5)) {
      case 0: text.resize(at + 1); break;
      case 1: text[at] = static_cast<char>(Below(256)); break;
      case 2: text.insert(at, "99999999999"); break;
      case 3: text.erase(at, 7); break;
      default: text.insert(at, "\r\n"); break;
      }
    }
    return text;
  }
};
