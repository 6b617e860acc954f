// Boundary conditions and weather.

#include <array>
#include <sstream>
#include <vector>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "auxiliary/aux_fixture.h"
#include "core/text.h"

namespace lomaris {
namespace {

using testing::HasSubstr;

const std::string kSeries =
    "gauge\r\n\r\nweir\r\n-2\t2\t1\r\n1\t0.5\t-1\r\n35.31467\t1\t0\r\n"
    "1997\t5\t1\t0\t12.5\t17\t8.25\r\n1997\t5\t1\t13.33333\t-1E-05\t1.234568E+07\t0\r\n";
const std::string kRating =
    "a\r\nb\r\nc\r\n1\t99999\t0\r\n1\r\n1\r\n 2 \r\n0.5\t10\r\n2\t250.75\r\n";
const std::string kWeather =
    "\r\n\r\nairport\r\n 0.13 \r\n 45.5 \t-93.25 \t-90 \r\n 1 \t 1 \t 4 \t 2 \tWETRAD\r\n"
    " 1997 \t 5 \t 1 \t 0 \t0.5\t3\t70\t61.5\t29.9\r\n"
    " 1997 \t 5 \t 1 \t 1 \t1\t4\t71\t60\t30\r\n 9999 \t 1 \t 1 \t 0 \r\nHead\r\nBrook\r\n";

/// "s.bcf" at the downstream end of branch 2, "r.bcf" at the upstream end of branch 1, "w.met".
class BoundaryAndWeather : public AuxFiles {
 protected:
  BoundaryAndWeather() {
    project_.BCCountH = project_.BCCountQ = 2;
    project_.BCFilesH[1].Upstream = "R.bcf";
    project_.BCFilesH[2].Downstream = "S.BCF";
  }

  bool LoadAs(const std::string& boundaryType, const std::string& name, const std::string& text) {
    ui_.Messages.clear();
    aux_.BoundaryType = boundaryType;
    return Load(name, text);
  }

  /// Counts, branch or node, options, then the values by step.
  std::string Shape() const {
    const AuxXSect& x = aux_.XSect[1];
    std::string out = fmt::format("{}/{} {} {} i{} o{}{} of {}:", aux_.NumTimes, aux_.Times.Count(),
                                  x.Name, x.Node, aux_.Interpolation, aux_.TemperatureOption,
                                  aux_.CloudOption, x.Values.Slots());
    const int columns = aux_.IsRating ? 2 : aux_.NumConst + 1;
    for (int i = 0; i < x.Values.Times() * columns; ++i) {
      out += fmt::format(" {:g}", x.Values(i % columns + 1, i / columns + 1));
    }
    return out;
  }

  /// All that was shown: title and text.
  std::string Shown() const {
    std::string all;
    for (const MessageBox& box : ui_.Messages) all += box.Title + ": " + box.Text + '\n';
    return all;
  }
};

TEST_F(BoundaryAndWeather, HaveTheirLayoutAndComeBack) {
  const std::array<std::string, 4> rows[] = {
      {"2/2 Boundary -2 i1 o00 of 17: 12.5 17 8.25 -1e-05 1.23457e+07 0", "s.bcf", "0", kSeries},
      {"2/2 Boundary 1 i0 o00 of 17: 0.5 10 2 250.75", "r.bcf", "2", kRating},
      {"2/2 Head 1 i1 o11 of 5: 0.5 3 70 61.5 29.9 1 4 71 60 30", "w.met", "0", kWeather}};
  for (const auto& [shape, name, timesOfHeader, text] : rows) {
    ASSERT_TRUE(LoadAs(name == "r.bcf" ? "T" : "Q", name, text)) << ui_.LastMessage();
    EXPECT_EQ(Shape(), shape);
    folder_.Write(name, "old");
    ASSERT_TRUE(!aux_.Modified && Save() && LoadHeader(name));
    EXPECT_EQ(folder_.Read(name), text);
    EXPECT_EQ(NumberText(aux_.XSect[1].Values.Times()), timesOfHeader);
    EXPECT_EQ(Shown(), "");
  }
  EXPECT_EQ(aux_.Latitude + 2 * aux_.Longitude + 4 * aux_.LongitudeStd, 45.5F - 186.5F - 360);
}

TEST_F(BoundaryAndWeather, AreReadWithTolerance) {
  ASSERT_TRUE(LoadAs("Q", "s.bcf", kSeries));
  const std::string series = Shape();
  aux_.ActiveConst[2] = false;  // leaves a column out of the rows, not of the factors
  ASSERT_TRUE(Save());
  EXPECT_THAT(folder_.Read("s.bcf"), HasSubstr("1\t0\r\n1997\t5\t1\t0\t12.5\t8.25\r\n"));
  for (const auto& [from, to] : {std::array{"8.25\r\n", "\n8.25, "},
                                 {"E+07\t0\r\n", "E+07\t0"},
                                 {"1\t0.5\t-1\r\n", "  1  0.5\t\t-1 \t\n"},
                                 {"E+07\t0\r\n", "E+07\t0\r\n9999 1 1 0\r\nnames\r\n"}}) {
    ASSERT_TRUE(LoadAs("H", "s.bcf", ReplaceAll(kSeries, from, to))) << to << ui_.LastMessage();
    EXPECT_EQ(Shape() + Shown(), series) << to;
  }
  std::istringstream options(
      "/WETCLO o10 /wetrad o11 /DEW// o20 /RELRAD o31 /WETRADX o10 "
      "/RAD o00 /XXXRAD o01 /WET/RAD o00 / o00");
  for (std::string field, read; options >> field >> read;) {
    const std::string text = ReplaceAll(kWeather, "\tWETRAD", ReplaceAll(field, "/", "\t"));
    ASSERT_TRUE(LoadAs("", "w.met", text));
    EXPECT_THAT(Shape() + Shown(), HasSubstr(read)) << field;
  }
  // A rating table has the points that it says, and its factors are 1 once it is saved.
  for (const auto& [from, to, shape] : {std::array{" 2 \r\n", "0\n", "0/0 "},
                                        {"\t250.75", "", "1/1 resave"},
                                        {" 2 \r\n", "2000000000\n", "2/2 resave"},
                                        {"\n1\r\n1\r\n 2", "\n3 7\n4\n 1", "1/1 "}}) {
    ASSERT_TRUE(LoadAs("T", "r.bcf", ReplaceAll(kRating, from, to)));
    EXPECT_EQ(Shape().substr(0, 4) + (ui_.Messages.empty() ? "" : "resave"), shape);
    EXPECT_EQ(aux_.Modified, !ui_.Messages.empty());
  }
  ASSERT_TRUE(Save());
  EXPECT_THAT(folder_.Read("r.bcf"), testing::EndsWith("\r\n1\r\n1\r\n 1 \r\n0.5\t10\r\n"));
}

TEST_F(BoundaryAndWeather, ABadFileIsReportedAndLeavesTheRecord) {
  const auto type = [](const char* expected, const char* found) {
    return fmt::format(
        "The Hydro file indicates that this {} a rating table boundary, however the BCF file is {} "
        "rating table type. The Hydro file should be changed to the appropriate boundary condition "
        "or a different boundary file should be specified.",
        expected, found);
  };
  std::string many = "131072\n1 2\n", wide = "1";
  for (int i = 0; i < 17; ++i, wide += "\t1") many += many.substr(many.find('\n') + 1);
  const std::array<std::string, 5> rows[] = {
      {"Q", kRating, " 2 ", "2", type("is not", "a")},
      {"T", kSeries, "\t2\t1\r\n", "\t7\t1\r\n", type("should be", "NOT a")},
      {"T", kRating, " 2 \r\n", many, "allowable time steps (116667)"},
      {"T", kRating, " 2 \r\n", "-1\n", "line 8 of file x.bcf\r\n\r\nSubscript out of range: -1"},
      {"T", kRating, "\t250", "\tx250", "read was: Error reading point 1\r\n\r\nInput aborted."},
      {"Q", kSeries, "0.5\t", "x\t", "line 6 of file x.bcf\r\n\r\nType mismatch: \"x\" is"},
      {"Q", kSeries, "1\t0.5\t-1", wide, "line 6 of file x.bcf\r\n\r\nSubscript out of range: 17"},
      {"Q", kSeries, "1.2345", "1,,2", "line 8 of file x.bcf\r\n\r\nType mismatch: \"\" is"},
      {"", kWeather, " 4 \t 2 \t", " 4   2 \t", "line 7 of file x.met\r\n\r\nType mismatch"},
      {"", kWeather, "\t60", "\t6O", "Last date-time was: 05/01/97 00:00\r\n\r\nInput aborted."}};
  ASSERT_TRUE(LoadAs("Q", "s.bcf", kSeries));
  for (const auto& [boundary, sound, from, to, message] : rows) {
    AuxData before = aux_;
    before.FileName = sound == kWeather ? "x.met" : "x.bcf";
    before.BoundaryType = boundary;
    window_ = {};
    EXPECT_FALSE(LoadAs(boundary, before.FileName, ReplaceAll(sound, from, to)));
    EXPECT_THAT(Shown(), testing::AllOf(testing::StartsWith("Error: "), HasSubstr(message)));
    EXPECT_EQ(aux_, before);
    EXPECT_THAT(window_.Log, testing::EndsWith("free closed "));
    EXPECT_EQ(window_.FormCancelled(), message.starts_with("The Hydro"));
  }
}

TEST_F(BoundaryAndWeather, AWetBulbThatIsNotBelowTheDryBulbIsAskedAboutOnce) {
  const std::string asked =
      "Warning: On 05/01/97 00:00 the Wet Bulb temperature was found to be greater than or equal "
      "to the Dry Bulb temperature. This is a physically impossible and will create erroneous model"
      " results.\r\n\r\nShould Lomaris correct this, and all subsequent occurrances, so that Wet "
      "Bulb never exceeds Dry Bulb temperature? If yes, remember to resave the file.\n";
  const std::array<std::string, 4> rows[] = {{"WET", "69.95\t29", "80\t30", "Yes 69.9 70.9"},
                                             {"WETRAD", "69.95\t29", "80\t30", "No 69.95 80"},
                                             {"WET", "69.9\t29", "70.9\t30", "69.9 70.9"},
                                             {"DEW", "69.95\t29", "80\t30", "69.95 80"}};
  for (const auto& [option, first, second, values] : rows) {
    ui_.Answers = {values.front() == 'Y' ? Answer::Yes : Answer::No};
    const std::string text = ReplaceAll(ReplaceAll(kWeather, "WETRAD", option), "61.5\t29", first);
    ASSERT_TRUE(LoadAs("", "w.met", ReplaceAll(text, "60\t30", second)));
    EXPECT_EQ(Shown(), values.front() > '9' ? asked : "");
    EXPECT_EQ(aux_.Modified, !ui_.Messages.empty());
    const ValueBlock& read = aux_.XSect[1].Values;
    EXPECT_THAT(values, testing::EndsWith(fmt::format("{:g} {:g}", read(4, 1), read(4, 2))));
  }
}

TEST_F(BoundaryAndWeather, TheProjectTellsTheBranch) {
  const std::string twice = ": BCF file appears more than once for Hydro\n";
  const std::string elsewhere = ": BCF file is used at different locations in Qual\n";
  const std::string missing =
      "Warning: No reference to this BCF file was found in the current project, so the branch "
      "information could not be stored in the file. Once you attach this file to a project, make "
      "sure you open then resave the file to assure it is correctly referenced in the model.\n";
  const auto differs = [](int branch) {
    return fmt::format(
        "Warning: Branch number found in BCF file (-2) was inconsistent with branch number for "
        "this file indicated in the Project file ({}). The branch number has been reset to make it "
        "match the Project file; make sure you save this file to permanently correct the "
        "discrepancy.\n",
        branch);
  };
  auto& h = project_.BCFilesH;
  auto& q = project_.BCFilesQ;
  const std::pair<std::vector<std::string*>, std::array<std::string, 3>> rows[] = {
      {{&h[2].Downstream}, {"-2", "", ""}},
      {{&q[1].Upstream}, {"1", differs(1), ""}},
      {{&h[2].Upstream, &q[2].Upstream}, {"2", elsewhere + differs(2), ""}},
      {{&h[1].Upstream, &h[2].Downstream}, {"-2", twice, twice}},
      {{&h[1].Upstream, &q[2].Downstream}, {"-2", elsewhere, elsewhere}},
      {{}, {"0", differs(0), missing}}};
  for (const auto& [places, texts] : rows) {
    for (int i = 1; i <= 2; ++i) h[i] = q[i] = {"(Not Specified)", "t.bcf"};
    for (std::string* place : places) *place = places.size() == 1 ? folder_.Path("s.bcf") : "S.bcf";
    ASSERT_TRUE(LoadAs("Q", "s.bcf", kSeries));
    EXPECT_EQ(Shown() + NumberText(aux_.XSect[1].Node), texts[1] + "-2") << "until it is saved";
    EXPECT_EQ(aux_.Modified, texts[0] != "-2" && texts[0] != "0") << "when a save puts it right";
    ui_.Messages.clear();
    ASSERT_TRUE(Save());
    EXPECT_EQ(Shown(), texts[2]);
    EXPECT_EQ(folder_.Read("s.bcf"), ReplaceAll(kSeries, "-2\t2", texts[0] + "\t2"));
    ASSERT_TRUE(LoadAs("Q", "s.bcf", folder_.Read("s.bcf")));
    EXPECT_EQ(Shown(), places.empty() ? "" : texts[2]) << "the file now says what the project does";
  }
}

}  // namespace
}  // namespace lomaris
