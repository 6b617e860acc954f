// Entries of auxiliary files follow a changed network.

#include <array>
#include <tuple>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "auxiliary/aux_fixture.h"
#include "auxiliary/xsect_names.h"
#include "core/text.h"

namespace lomaris {
namespace {

using testing::ElementsAre;

constexpr char kLegacy[] =
    "Cross section names were missing from the file (probably because this is a legacy file). "
    "Lomaris therefore inferred cross section names using available cross section numbers matched "
    "to names in the Hydrodynamic input file. To avoid potential problems caused by cross section "
    "name/number mismatches, you should resave this file after checking to see that the proper "
    "names have been assigned to each input.";
constexpr char kMoved[] =
    "The node number associated with the cross section named \"{}\" was changed from {} to {}. "
    "This occurred because  one or more cross sections in the Hydrodynamic input file were "
    "inserted  or deleted.";
constexpr char kRenamed[] =
    "Cross section named \"{}\" was not found; using node number {} and assigning name \"{}\". "
    "This occurred because the specified cross section was renamed in the Hydrodynamic input "
    "file. If cross sections were also inserted or deleted, then it is possible that the "
    "assigned name is incorrect; please review the input file.";
constexpr char kDead[] =
    "Cross section named \"Invalid Name: {}\" was not found; and node number {} was not found. "
    "This occurred because the specified cross section was renamed in the Hydrodynamic input "
    "file and cross sections were also deleted, or it is possible that this auxiliary file is "
    "incompatible with the current Hydrodynamic input file.\r\n\r\nYou may have to edit this "
    "file with a text editor to correct the problem.";
constexpr char kBeyond[] =
    "Warning: cross section number ({}) exceeds the maximum cross section number in the "
    "Hydrodynamic input file ({}). The cross section number has therefore been reset to the "
    "maximum allowable value and the associated cross section name ({}) has been assigned. "
    "Verify the correctness of this before saving the file.";

template <class... Parts>
std::string Text(const char* text, Parts... parts) {
  return fmt::format(fmt::runtime(text), parts...);
}

/// Files of two entries at nodes 2 and 4, with one step.
const std::string kLAT = "\n\n\n1 2 0 0\n2\n4\nS\n1 1\nC\n1 1\n2000 1 1 0\n1 1\n9999 1 1 0\n";
const std::string kWIT = "\n\n\n1 2 0\n2 1 1\n4 1 1\n2000 1 1 0\n1 1\n9999 1 1 0\n";
const std::string kMET =
    "\n\n\n1\n1 1 1\n 0 \t 2 \t 4 \t 1 \tDEW\n2000 1 1 0 .5 5 70 60 29.9\n9999 1 1 0\n";
constexpr char kPOW[] =
    "\n\n\n1\t2\t0\t1\n2\t1\t1\t1\t1\t{}\n4\t1\t1\t1\t1\t{}\n2000 1 1 0\n1 1\n70 70\n9999 1 1 0\n";

class Reconciled : public AuxFiles {
 protected:
  /// Nodes and names of the entries.
  std::string References() const {
    std::string text;
    for (std::int32_t i = 1; i <= aux_.NumXSect; ++i) {
      const AuxXSect& x = aux_.XSect[i];
      text += fmt::format("{} {} ", x.Node, x.Name);
      if (aux_.HeatLoadType == 1) text += fmt::format("from {} {} ", x.IntakeNode, x.IntakeName);
    }
    return text;
  }

  /// What was told since the last call.
  std::vector<std::string> Told() {
    std::vector<std::string> texts;
    for (const MessageBox& box : std::exchange(ui_.Messages, {})) {
      texts.push_back(box.Text);
      EXPECT_EQ(box.Title, box.Text.starts_with("Warning: ") ? "" : "Warning");
      EXPECT_EQ(box.BoxIcon, box.Text == kLegacy ? Icon::Information : Icon::None);
    }
    return texts;
  }
};

TEST_F(Reconciled, EntriesFollowTheirNamesAndThenTheirNumbers) {
  const std::tuple<std::string, std::string, std::vector<std::string>> rows[] = {
      {"Mill Brook", "2 Mill 4 Brook ", {}},
      {"Weir Head", "3 Weir 1 Head ", {Text(kMoved, "Weir", 2, 3), Text(kMoved, "Head", 4, 1)}},
      {"MILL Brook", "2 Mill 4 Brook ", {Text(kRenamed, "MILL", 2, "Mill")}},
      {"Mill Mill", "2 Mill 2 Mill ", {Text(kMoved, "Mill", 4, 2)}},
      {"", "2 Mill 4 Brook ", {kLegacy}},
      {"Weir", "3 Weir 4 Brook ", {Text(kMoved, "Weir", 2, 3), kLegacy}},
      {" Brook", "2 Mill 4 Brook ", {Text(kRenamed, "", 2, "Mill")}}};
  for (const auto& [file, text] : {std::pair{"a.lat", kLAT}, {"b.WIT", kWIT}, {"m.met", kMET}}) {
    for (const auto& [names, references, told] : rows) {
      ASSERT_TRUE(Load(file, text + ReplaceAll(names, " ", "\n") + "\n")) << file << names;
      EXPECT_EQ(References(), references) << file;
      EXPECT_EQ(Told(), told) << file;
      EXPECT_EQ(aux_.Modified, !told.empty()) << file << names;
    }
  }
}

TEST_F(Reconciled, IntakesFollowInSilenceAndHoldOver) {
  const std::array<std::string, 5> rows[] = {
      // intakes by number, names with intakes, references, told
      {"1", "3", "Mill Head Brook Weir", "2 Mill from 1 Head 4 Brook from 3 Weir ", ""},
      {"1", "3", "Mill Weir Brook Head", "2 Mill from 3 Weir 4 Brook from 1 Head ", ""},
      {"1", "3", "Mill Lake Brook Weir", "2 Mill from 1 Head 4 Brook from 3 Weir ", ""},
      {"1", "3", "Mill Head Brook Lake", "2 Mill from 1 Head 4 Brook from 1 Lake ", ""},
      {"1", "0", "Mill Lake Brook Lake", "2 Mill from 1 Head 4 Brook from 0 Head ", ""},
      {"9", "3", "Mill Lake Brook Weir", "", Text(kDead, "Lake", 9)},
      {"1", "3", "Mill Head Brook", "2 Mill from 1 Head 4 Brook from 3 Weir ", kLegacy},
      {"0", "3", "", "2 Mill from 0  4 Brook from 3 Weir ", kLegacy},
      {"0", "3", "Mill  Brook Weir", "2 Mill from 0  4 Brook from 3 Weir ", ""},
      {"9", "3", "Mill  Brook Weir", "", Text(kDead, "", 9)}};
  for (const auto& [intake1, intake2, names, references, told] : rows) {
    aux_ = {};
    const std::string list = ReplaceAll(names, " ", "\n");
    EXPECT_EQ(Load("c.pow", Text(kPOW, intake1, intake2) + list), !references.empty()) << names;
    EXPECT_EQ(References(), references) << names;
    const bool isSound = names == "Mill Head Brook Weir" || names == "Mill  Brook Weir";
    EXPECT_EQ(aux_.Modified, !references.empty() && !isSound) << names;
    EXPECT_EQ(Told(), std::vector<std::string>(told.empty() ? 0 : 1, told)) << names;
  }
}

TEST_F(Reconciled, AnUneditedSaveWritesWhatTheLoadRepaired) {
  ASSERT_TRUE(Load("a.lat", kLAT + "Mill\nBrook\n") && Save());
  const std::string before = folder_.Read("a.lat");
  AddBranch(1, {"Head", "Ford", "Mill", "Race"});
  ASSERT_TRUE(Load("a.lat"));
  EXPECT_THAT(Told(), ElementsAre(Text(kMoved, "Mill", 2, 3), Text(kMoved, "Brook", 4, 5)));
  EXPECT_TRUE(aux_.Modified && aux_.ActiveNode[2] && !aux_.ActiveNode[3]) << "as in the header";
  MarkNodesOfEntries(aux_);
  ASSERT_TRUE(Save() && Load("a.lat"));
  EXPECT_EQ(folder_.Read("a.lat"), ReplaceAll(ReplaceAll(before, " 4 ", " 5 "), " 2 ", " 3 "));
  EXPECT_TRUE(!aux_.Modified && Told().empty());
  AddBranch(2, {"Mill"});
  ASSERT_TRUE(Load("a.lat"));
  EXPECT_EQ(References(), "5 Mill 5 Mill ") << "of equal names the last";
  EXPECT_THAT(Told(), ElementsAre(Text(kMoved, "Mill", 3, 5), Text(kRenamed, "Brook", 5, "Mill")));
}

TEST_F(Reconciled, ADeadReferenceEndsTheLoad) {
  ASSERT_TRUE(Load("b.wit", kWIT + "Mill\nBrook\n"));
  AddBranch(2, {});
  const AuxData before = aux_;
  EXPECT_FALSE(Load("b.wit", kWIT + "Hill\nBrook\n"));
  EXPECT_THAT(Told(), ElementsAre(Text(kRenamed, "Hill", 2, "Mill"), Text(kDead, "Brook", 4)));
  EXPECT_EQ(aux_, before);
  EXPECT_THAT(window_.Log, testing::EndsWith("no-bar idle free closed "));
  network_ = {};
  EXPECT_FALSE(Load("b.wit", kWIT + std::string(1 << 22, 'x')));
  EXPECT_EQ(Told(), std::vector{Text(kDead, std::string(2000, 'x') + "...", 2)});
}

TEST_F(Reconciled, ALegacyFileHasTheNamesOfItsNumbers) {
  AddBranch(2, {});
  ASSERT_TRUE(Load("a.lat", kLAT));
  EXPECT_EQ(References(), "2 Mill 4 Weir ");
  EXPECT_THAT(Told(), ElementsAre(kLegacy, Text(kBeyond, 4, 3, "Weir")));
  TellStaleNodes(aux_, network_, ui_);
  EXPECT_THAT(Told(), ElementsAre("One or more cross sections in this Auxiliary file references "
                                  "cross sections which don't exist in the current Hydrodynamic "
                                  "input file. Do NOT save this file or data may be lost."));
  ASSERT_TRUE(Save());
  EXPECT_THAT(folder_.Read("a.lat"), testing::HasSubstr("\r\n 2 \r\n 4 \r\n"));
  ASSERT_TRUE(Load("a.lat"));
  TellStaleNodes(aux_, network_, ui_);
  EXPECT_THAT(Told(), ElementsAre(Text(kMoved, "Weir", 4, 3))) << "saved, it is settled";
}

}  // namespace
}  // namespace lomaris
