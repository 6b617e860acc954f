// Lateral inflows, withdrawals and heat loads, and what all kinds share.

#include <array>
#include <sstream>

#include <gmock/gmock.h>

#include "auxiliary/aux_fixture.h"
#include "core/dates.h"
#include "core/text.h"

namespace lomaris {
namespace {

using testing::HasSubstr;

const std::string kLAT =
    "Tavresk\r\nca\xF1on  gauges\r\n\r\n2\t2\t1\t2\r\n 1 \r\n 4 \r\n 1 \r\n 10 \r\nTEMP\r\nDO\r\n"
    "SCALE_FACTORS\tFLOW\tTEMP\tDO\r\n1\t0.5\t-1\r\n1\t1\t0\r\n"
    "CONVERSION_FACTORS\tFLOW\tTEMP\tDO\r\n1\t1\t1\r\n35.31467\t1\t1\r\n"
    "1997\t5\t1\t0\r\n12.5\t17\t8.25\r\n-1E-05\t1.234568E+07\t0\r\n"
    "1997\t5\t1\t13.33333\r\n13\t17.5\t8\r\n0.1\t0\t9\r\n"
    " 9999 \t 1 \t 1 \t 0 \r\nHead\r\nBrook\r\n";
const std::string kWIT =
    "\r\n\r\n\r\n 2 \t 2 \t 0 \r\n 2 \t 1 \t 0.5 \r\n 3 \t-1 \t 1 \r\n"
    " 1997 \t 12 \t 31 \t 23.98333 \r\n3\t4.5\r\n 1998 \t 1 \t 1 \t 1 \r\n5\t-6\r\n"
    " 9999 \t 1 \t 1 \t 0 \r\nMill\r\nWeir\r\n";
const std::string kPOW =
    "\r\n\r\nplant\r\n 1 \t 2 \t 1 \t 1 \r\n 2 \t 1 \t 2 \t 3 \t 4 \t 1 \r\n"
    " 4 \t 1 \t 1 \t 1 \t 1 \t 3 \r\n 1997 \t 5 \t 1 \t 0 \r\n10\t20\r\n71.5\t72\r\n"
    " 9999 \t 1 \t 1 \t 0 \r\nMill\r\nHead\r\nBrook\r\nWeir\r\n";

/// What a record holds: counts, times, then per entry its names, factors and values.
std::string Shape(const AuxData& aux) {
  std::ostringstream out;
  out << aux.NumTimes << ' ' << aux.NumXSect << ' ' << aux.NumConst << ' ' << aux.Times.Count()
      << " i" << int{aux.Interpolation} << " h" << int{aux.HeatLoadType};
  for (std::int32_t i = 1; i <= aux.NumXSect; ++i) {
    const AuxXSect& x = aux.XSect[i];
    out << " | " << x.Node << ' ' << x.Name << ' ' << x.IntakeNode << ' ' << x.IntakeName;
    for (int slot = 1; slot <= kMostSlots; ++slot) {
      if (!aux.ActiveConst[slot]) continue;
      out << " s" << slot << " *" << x.Scale[slot] << " *" << x.Conversion[slot];
      for (int t = 1; t <= x.Values.Times(); ++t) out << ' ' << x.Values(slot, t);
    }
    out << " of " << x.Values.Slots();
  }
  return out.str();
}

const std::string kShapeLAT =
    "2 2 2 2 i1 h0 | 1 Head 0  s1 *1 *1 12.5 13 s2 *0.5 *1 17 17.5 s11 *-1 *1 8.25 8 of 17"
    " | 4 Brook 0  s1 *1 *35.3147 -1e-05 0.1 s2 *1 *1 1.23457e+07 0 s11 *0 *1 0 9 of 17";

TEST_F(AuxFiles, HaveTheirLayoutAndComeBack) {
  const std::array<std::string, 3> rows[] = {
      {"a.lat", kLAT, kShapeLAT},
      {"B.WIT", kWIT,
       "2 2 0 2 i0 h0 | 2 Mill 0  s1 *1 *0.5 3 5 of 1 | 3 Weir 0  s1 *-1 *1 4.5 -6 of 1"},
      {"c.pow", kPOW,
       "1 2 1 1 i1 h1 | 2 Mill 1 Head s1 *1 *2 10 s2 *3 *4 71.5 of 2"
       " | 4 Brook 3 Weir s1 *1 *1 20 s2 *1 *1 72 of 2"}};
  for (const auto& [file, text, shape] : rows) {
    ASSERT_TRUE(Load(file, text)) << ui_.LastMessage();
    EXPECT_EQ(Shape(aux_), shape);
    EXPECT_FALSE(aux_.Modified);
    aux_.Modified = true;
    folder_.Write(file, "old");
    ASSERT_TRUE(Save());
    EXPECT_FALSE(aux_.Modified);
    EXPECT_EQ(folder_.Read(file), text);
    AuxData read = aux_;
    ASSERT_TRUE(LoadHeader(file));
    EXPECT_EQ(aux_.XSect[1].Values.Times(), 0);
    read.Times = {};
    for (AuxXSect& xsect : read.XSect) {
      xsect.Values = {};
      xsect.Name = xsect.IntakeName = "";
    }
    EXPECT_EQ(aux_, read);
  }
  EXPECT_TRUE(ui_.Messages.empty());
  EXPECT_EQ(folder_.Entries(), "B.WIT a.lat c.pow") << "no backups";
}

TEST_F(AuxFiles, AreReadWithTolerance) {
  const std::array<std::string, 3> rows[] = {
      {"a.lat", "12.5\t17\t8.25\r\n-1E-05\t", "12.5,17 ,\r\n\n  +8.25   -.1D-4 \t"},  // wrapped
      {"a.lat", "1\t0.5\t-1\r\n1\t1\t0\r\n", "1 0.5 -1 1\r\n1 0\r\n"},
      {"a.lat", "1997\t5\t1\t0\r\n", "  1997 5\t\t 1 0.000 further fields\n"},
      {"a.lat", "TEMP\r\nDO\r\n", "what\r\never\r\n"},
      {"a.lat", "\r\n", "\n"},
      {"a.lat", "Brook\r\n", "Brook"},
      {"a.lat", "Brook\r\n", "Brook\r\nUnchecked\r\n"}};
  for (const auto& [file, from, to] : rows) {
    ASSERT_TRUE(Load(file, ReplaceAll(kLAT, from, to))) << to << ui_.LastMessage();
    EXPECT_EQ(Shape(aux_), kShapeLAT) << to;
  }
  ASSERT_TRUE(Load("a.lat", "\n\n\n1 1 0 0\n 2\nS\n5\nC\n6\n2000 1 1 24\n7\n9999 1 1 0\nMill\n"));
  EXPECT_EQ(Shape(aux_), "1 1 0 1 i0 h0 | 2 Mill 0  s1 *5 *6 7 of 17") << "flow alone";
  EXPECT_EQ(aux_.Times[1], 36527);
  ASSERT_TRUE(Load("b.wit", "\n\n\n1 0 0\n2000 1 1 0\n") && Save() && Load("b.wit"));
  EXPECT_EQ(Shape(aux_), "1 0 0 1 i0 h0") << "no cross section, no rows";
  EXPECT_TRUE(LoadHeader(" b.wit "));
  EXPECT_TRUE(ui_.Messages.empty());
}

TEST_F(AuxFiles, ListTheNamesOfInactiveCrossSectionsToo) {
  ASSERT_TRUE(Load("a.lat", kLAT));
  aux_.ActiveNode[1] = false;
  aux_.ActiveConst[11] = false;
  ASSERT_TRUE(Save());
  EXPECT_EQ(aux_.NumConst, 1);
  EXPECT_EQ(folder_.Read("a.lat"),
            "Tavresk\r\nca\xF1on  gauges\r\n\r\n2\t1\t1\t1\r\n 4 \r\n 1 \r\nTEMP\r\n"
            "SCALE_FACTORS\tFLOW\tTEMP\r\n1\t1\r\nCONVERSION_FACTORS\tFLOW\tTEMP\r\n35.31467\t1\r\n"
            "1997\t5\t1\t0\r\n-1E-05\t1.234568E+07\r\n1997\t5\t1\t13.33333\r\n0.1\t0\r\n"
            " 9999 \t 1 \t 1 \t 0 \r\nHead\r\nBrook\r\n");
}

TEST_F(AuxFiles, LegacyHeatLoadsAreWithdrawnFromTheNextNodeUpstream) {
  const std::string line = " 2 \t 1 \t 2 \t 3 \t 4 \t 1 ";
  for (const char* legacy : {" 2 \t 1 \t 2", "\t2\t1\t2\t\t", "2\t1\t2\t3\t4"}) {
    ui_.Messages.clear();
    ASSERT_TRUE(Load("c.pow", ReplaceAll(kPOW, line, legacy)));
    ASSERT_EQ(ui_.Messages.size(), 1U);
    EXPECT_EQ(ui_.Messages[0].Title, "Warning");
    EXPECT_EQ(ui_.LastMessage(),
              "Lomaris has detected that this is a legacy POW file which does not contain "
              "withdrawal cross section names. By default, the next upstream cross section is "
              "assigned. Please review these and save the file so that it can be properly read by "
              "Vesk.");
    EXPECT_TRUE(aux_.Modified);
    EXPECT_THAT(Shape(aux_), HasSubstr("| 2 Mill 1 Head s1 *1 *2 10 s2 *1 *1 71.5 of 2"));
  }
  ASSERT_TRUE(Save() && Load("c.pow"));
  EXPECT_EQ(ui_.Messages.size(), 1U) << "a saved file is no legacy file any more";
  EXPECT_FALSE(aux_.Modified);
  ui_.Messages.clear();
  ASSERT_TRUE(Load("c.pow", "\n\n\n1\t1\t0\t0\n1\t1\t1\n2000 1 1 0\n5\n70\n") && Save());
  EXPECT_EQ(ui_.Messages.size(), 2U) << "legacy, and no names";
  ASSERT_TRUE(Load("c.pow"));
  EXPECT_THAT(Shape(aux_), HasSubstr("| 1 Head 0  s1")) << "nothing is upstream of the first node";
  EXPECT_TRUE(ui_.Messages.size() == 2 && !aux_.Modified);
}

std::string Notice(const std::string& read, const std::string& header) {
  return "The number of time steps read from this file (" + read +
         ") was not equal to the number specified in the file header (" + header +
         "). Lomaris has adopted the number of steps actually read as the correct value. Remember "
         "to resave this file to correct this mismatch, or create a new file with the correct "
         "number of time steps.";
}

TEST_F(AuxFiles, TheStepsThatWereReadCount) {
  const std::string head = "\n\n\n";
  const std::string steps = "2 1 0\n1 1 1\n2000 1 1 0\n5\n2000 1 1 1\n6\n";
  const std::array<std::string, 3> rows[] = {
      // text, header's number, number read
      {"2 1 0\n1 1 1\n", "2", "0"},
      {steps + "2000 1 1 2\n7", "2", "3"},
      {ReplaceAll(steps, "2 1 0\n1", "1000000000 1 0\n1"), "1000000000", "2"},
      {ReplaceAll(steps, "6\n", ""), "2", "1"},
      {ReplaceAll(steps, "6\n", " \t\r\n\n"), "2", "1"},
      {ReplaceAll(steps, "2000 1 1 1\n", "9999 1 1 0\nMill\n"), "2", "1"}};
  for (const auto& [text, header, read] : rows) {
    ui_.Messages.clear();
    ASSERT_TRUE(Load("b.wit", head + text)) << ui_.LastMessage();
    ASSERT_FALSE(ui_.Messages.empty());
    EXPECT_EQ(ui_.Messages[0].Text, Notice(read, header));
    EXPECT_EQ(ui_.Messages[0].Title, "Notice");
    EXPECT_TRUE(aux_.Modified);
    EXPECT_EQ(NumberText(aux_.NumTimes), read);
    EXPECT_EQ(aux_.Times.Count(), aux_.NumTimes);
    EXPECT_EQ(aux_.XSect[1].Values.Times(), aux_.NumTimes);
  }
}

TEST_F(AuxFiles, HoldNoMoreStepsThanAGridCanShow) {
  AuxData aux;
  std::string limits;
  for (const auto& [xsects, constituents] : {std::pair{40, 16}, {1, 0}, {0, 0}, {2, 1}, {1, 17}}) {
    aux.NumXSect = xsects;
    aux.NumConst = constituents;
    limits += NumberText(MaxSteps(aux)) + ' ';
  }
  EXPECT_EQ(limits, "8333 116667 116667 87500 17500 ");

  std::string head = "\n\n\n0 500 0\n", step = "2000 1 1 0\n";
  for (int i = 1; i <= 500; ++i) {
    head += NumberText(i) + " 1 1\n";
    step += "1 ";
  }
  std::string text;
  for (int i = 1; i <= 697; ++i) text += step + "\n";
  ASSERT_TRUE(Load("b.wit", head + text + "9999 1 1 0\n")) << "697 is 350000 / 502";
  const AuxData before = aux_;
  EXPECT_FALSE(Load("b.wit", head + text + "2000 1 1 0\n"));
  EXPECT_EQ(ui_.LastMessage(),
            "You have exceeded the maximum number of allowable time steps (697). You cannot edit "
            "this file using Lomaris. Sorry.");
  EXPECT_EQ(aux_.Times, before.Times);
  EXPECT_FALSE(aux_.Modified);
  EXPECT_THAT(window_.Log, testing::EndsWith("free closed "));
}

struct BadFile {
  const char* Name;
  std::string From;  ///< in the sound file of that kind
  std::string To;
  const char* Line;
  std::string Error;
  std::string LastLine;
};

TEST_F(AuxFiles, ABadFileIsReportedWithItsLineAndLeavesTheRecord) {
  const std::string mismatch = "Type mismatch: ", past = "Input past end of file";
  const std::string ends = past + ": the file ends before all that it announces";
  const BadFile rows[] = {
      {"a.lat", "2\t2\t1\t2", "2\tx\t1\t2", "5", mismatch + "\"x\" is not a number",
       "2<TAB>x<TAB>1<TAB>2"},
      {"a.lat", "2\t2\t1\t2", "2\t1000000000\t1\t2", "5",
       "Subscript out of range: 1000000000 is not within 0 to 500", "2<TAB>1000000000<TAB>1<TAB>2"},
      {"a.lat", "2\t2\t1\t2", "-2 2 1 2", "5",
       "Subscript out of range: -2 is not within 0 to 2147483647", "-2 2 1 2"},
      {"a.lat", "2\t2\t1\t2", "2 2 1 -1", "5", "Subscript out of range: -1 is not within 0 to 16",
       "2 2 1 -1"},
      {"a.lat", "2\t2\t1\t2", "2 2 256 2", "5", "Overflow: 256 is not within 0 to 255",
       "2 2 256 2"},
      {"a.lat", "2\t2\t1\t2", "3000000000 2 1 2", "5", "Overflow: \"3000000000\" is too large",
       "3000000000 2 1 2"},
      {"a.lat", " 10 \r\n", " 1 \r\n", "9", "Subscript out of range: constituent 1 stands twice",
       " 1 "},
      {"a.lat", "-1\r\n1", "-1\r\n1e39", "13", "Overflow: \"1e39\" is too large",
       "Error reading cross section 1"},
      {"a.lat", "17", "1,,7", "18", mismatch + "\"\" is not a number", "1997<TAB>5<TAB>1<TAB>0"},
      {"a.lat", "17.5", std::string("1\0", 2), "21", mismatch + "\"1\u2400\" is not a number",
       "1997<TAB>5<TAB>1<TAB>13.33333"},
      {"a.lat", "1997\t5\t1\t13", "0\t5\t1\t13", "21", mismatch + "the time step has no valid date",
       "0<TAB>5<TAB>1<TAB>13.33333"},
      {"b.wit", "5\t-6", "5\tnan", "10", mismatch + "\"nan\" is not a number",
       " 1998 <TAB> 1 <TAB> 1 <TAB> 1 "},
      {"c.pow", "71.5", "71.5.", "9", mismatch + "\"71.5.\" is not a number",
       "Last date-time was: 05/01/97 00:00"},
      {"c.pow", " 1 \t 2 \t 1 \t 1 \r\n", "1 2 1 1\r\n", "5",
       mismatch + "\"1 2 1 1\" is not a number", "1 2 1 1"},
      {"c.pow", " 4 \t 1 \r\n", "4\t5\t6\t7\t8\t9\t10\t11\r\n", "6", "Subscript out of range",
       " 2 <TAB> 1 <TAB> 2 <TAB> 3 <TAB>4<TAB>5<TAB>6<TAB>7<TAB>8<TAB>9<TAB>10<TAB>11"},
  };
  ASSERT_TRUE(Load("a.lat", kLAT));
  for (const BadFile& row : rows) {
    const std::string& sound = row.Name[0] == 'a' ? kLAT : row.Name[0] == 'b' ? kWIT : kPOW;
    AuxData before = aux_;
    before.FileName = row.Name;
    aux_.Modified = true;
    window_.Log.clear();
    EXPECT_FALSE(Load(row.Name, ReplaceAll(sound, row.From, row.To))) << row.From << row.To;
    EXPECT_EQ(ui_.LastMessage(), std::string("Following error occurred on line ") + row.Line +
                                     " of file " + row.Name + "\r\n\r\n" + row.Error +
                                     "\r\n\r\nLast line read was: " + row.LastLine +
                                     "\r\n\r\nInput aborted.");
    EXPECT_EQ(ui_.Messages.back().Title, "Error");
    EXPECT_EQ(aux_, before);
    EXPECT_EQ(window_.Log, "busy bar locked no-bar idle free closed ");
  }
  const std::size_t header = kLAT.find("35.31467");
  for (std::size_t end = kLAT.find('\r'); end < header; end = kLAT.find('\r', end + 1)) {
    EXPECT_FALSE(Load("a.lat", kLAT.substr(0, end)));
    EXPECT_THAT(ui_.LastMessage(), HasSubstr(ends)) << end;
  }
}

TEST_F(AuxFiles, DamageIsToldAtOnceHoweverLargeItIs) {
  std::string binary;
  for (unsigned i = 0; i < 1U << 20; ++i) binary += static_cast<char>(i * 7919U >> 4);
  std::string badHours = "\n\n\n2 1 0\n1 1 1\n";
  for (int i = 0; i < 1000; ++i) badHours += "2000 1 1 25\n5\n";
  for (const char* name : {"a.lat", "b.wit", "c.pow"}) {
    for (const std::string& text :
         {binary, std::string(1 << 22, '7'), "\n\n\n" + std::string(1 << 22, '\t'),
          std::string(1 << 22, '\n'), badHours}) {
      ui_.Messages.clear();
      EXPECT_FALSE(Load(name, text));
      EXPECT_THAT(ui_.LastMessage(), HasSubstr("Input aborted."));
      EXPECT_LE(ui_.Messages.size(), 21U);
      EXPECT_LT(ui_.LastMessage().size(), 7000U);
    }
  }
}

TEST_F(AuxFiles, ANodeOutsideTheRangeEndsTheLoad) {
  for (const auto& [name, text, node] :
       {std::array<std::string, 3>{"a.lat", ReplaceAll(kLAT, " 4 \r\n", " 501 \r\n"), "501"},
        {"b.wit", ReplaceAll(kWIT, " 3 \t-1", " 0 \t-1"), "0"},
        {"c.pow", ReplaceAll(kPOW, " 4 \t 1 \t 1", "-4 \t 1 \t 1"), "-4"}}) {
    EXPECT_FALSE(LoadHeader(folder_.Write(name, text)));
    EXPECT_EQ(ui_.Messages.back().Title, "Error");
    EXPECT_EQ(ui_.LastMessage(),
              "Node number " + node +
                  " was found in this auxiliary file. This is outside the range of node numbers "
                  "found in the HNP file (1 to 4). This probably occurred because the LAT file was "
                  "editted outside of Lomaris or because this auxiliary file is from a different "
                  "modeling project.");
  }
}

TEST_F(AuxFiles, AFileThatIsNotThereMayBeCreated) {
  ui_.Answers = {Answer::No, Answer::Yes};
  EXPECT_FALSE(Load("new.lat"));
  EXPECT_EQ(window_.Log, "closed ");
  EXPECT_EQ(folder_.Entries(), "");
  EXPECT_FALSE(Load("new.lat"));
  EXPECT_EQ(ui_.LastMessage(), "File new.lat does not exist.\r\n\r\nDo you want to create it?");
  EXPECT_EQ(ui_.Messages.back().Title, "Edit Auxiliary File");
  EXPECT_EQ(folder_.Entries(), "new.lat");
  EXPECT_FALSE(Load("new.lat")) << "and is empty";
  EXPECT_EQ(ui_.Messages.size(), 2U);
  EXPECT_EQ(window_.Log, "closed ");
}

TEST_F(AuxFiles, TheWindowShowsTheWorkAndCanBeGivenUp) {
  ASSERT_TRUE(Load("c.pow", kPOW));
  EXPECT_EQ(window_.Log, "busy bar locked no-bar idle free ");
  EXPECT_EQ(window_.Percent, 100);
  window_.Log.clear();
  struct : ScriptedUi {
    int Passes = 0;
    void DoEvents() override { ++Passes; }
  } events;
  ASSERT_TRUE(SaveAUXFile(aux_, {network_, project_, tables_, events, &window_}));
  EXPECT_EQ(window_.Log, "busy bar no-bar idle ");
  EXPECT_EQ(events.Passes, 0) << "an edit would change the record under the writer";
  ASSERT_TRUE(LoadAUXFile(aux_, {network_, project_, tables_, events, &window_}));
  EXPECT_EQ(events.Passes, 1);
  window_.PollsToCancel = 1;
  EXPECT_FALSE(Load("a.lat", kLAT));
  EXPECT_EQ(window_.Percent, 50);
  EXPECT_THAT(window_.Log, testing::EndsWith("free closed "));
  EXPECT_TRUE(ui_.Messages.empty());
}

TEST_F(AuxFiles, WhatCannotBeWrittenLeavesTheOldFile) {
  ASSERT_TRUE(Load("a.lat", kLAT));
  const AuxData sound = aux_;
  const auto refuses = [&](auto damage, const std::string& message) {
    aux_ = sound;
    aux_.Modified = true;
    damage();
    ui_.Answers = {Answer::Abort, Answer::Abort};
    EXPECT_FALSE(Save());
    EXPECT_THAT(ui_.LastMessage(), HasSubstr(message));
    EXPECT_TRUE(aux_.Modified);
    EXPECT_EQ(folder_.Read("a.lat"), kLAT);
  };
  refuses([&] { aux_.XSect[2].Node = 501; }, "501 is not within 1 to 500");
  refuses([&] { aux_.NumTimes = 3; }, "3 is not within 1 to 2");
  refuses([&] { aux_.XSect[2].Values = {}; }, "1 is not within a series of 0 steps");
  refuses([&] { aux_.Times[1] = 1e9; }, "a date that no file can hold");
  refuses([&] { aux_.Times[2] = *DateSerial(9999, 1, 1); }, "year 9999 would end the series");
  refuses([&] { aux_.XSect[1].Values(1, 1) = 1 / aux_.Latitude; }, "not a finite number");
  aux_ = sound;
  aux_.XSect[1].Node = 4;
  aux_.XSect[2].Node = 2;
  MarkNodesOfEntries(aux_);
  ASSERT_TRUE(Save());
  EXPECT_THAT(folder_.Read("a.lat"), HasSubstr("2\t2\t1\t2\r\n 4 \r\n 2 \r\n"));
}

}  // namespace
}  // namespace lomaris
