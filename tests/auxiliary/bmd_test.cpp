#include <array>
#include <bit>
#include <cmath>
#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

#include "auxiliary/aux_fixture.h"
#include "auxiliary/cls_bmd.h"
#include "core/error_of.h"
#include "core/text.h"

namespace lomaris {
namespace {

using namespace std::string_literals;

template <class Number, class... Numbers>
std::string Bytes(Number number, Numbers... numbers) {
  std::string bytes(std::bit_cast<std::array<char, sizeof number>>(number).data(), sizeof number);
  return (bytes + ... + Bytes(numbers));
}

std::string Header(int segments, int times, int vars) {
  return "BMD\x0F\0"s + Bytes(2.0F, -1294967296) + std::string(37, '\0') +
         Bytes(segments, times, vars, -0.5, 0.25);
}

/// Two variables at three segments over two steps, from 3,000,000,000 s after the start of 1901.
const std::string kBMD = Header(3, 2, 2) + "Flow\0             "s + "cfs\0        "s +
                         "Ammonia, dissolved"s + "mg/l as N\0  "s +
                         Bytes(1.F, 2e15F, 2.F, 3e15F, 3.F, -4e15F) +
                         Bytes(10.F, 2e15F, -5.F, 9e15F, 0.5F, 1.F) + Bytes(0.25, -0.5) +
                         Bytes(-5.F, 10.F, -4e15F, 9e15F) + Bytes(1.F, 10.F, -5.F, 2.F, 0.5F, 3.F) +
                         Bytes(1e15F, 2e15F, 1e15F, 9e15F, -4e15F, 1.F) + "Head\0          "s +
                         "Cr\xEAt\xE9\0         "s + "Fifteen letters";
const ModelDateTime kOrigin = 367 + 3e9 / 86400;

struct BMDFiles : AuxFiles {
  clsBMD bmd_{ui_};
};

TEST_F(BMDFiles, AreWrittenAsTheyWereRead) {
  ASSERT_TRUE(bmd_.ReadBMD(folder_.Write("a.bmd", kBMD), false));
  EXPECT_EQ(bmd_.VarUnits(2) + bmd_.SegName(2), "mg/l as NCrêté");
  EXPECT_EQ(bmd_.ConcVar(1)[2][2] + bmd_.ConcVarSeg(1, 1)[2] + bmd_.Conc(1, 3, 2), 5.5);
  EXPECT_EQ(bmd_.VarSegMin(1, 2) + bmd_.VarSegMax(1, 1) + bmd_.VarMin(1) + bmd_.VarMax(1), 10);
  bmd_.SetTimeOffset(5);
  EXPECT_EQ(bmd_.Time(1), kOrigin + 5 / 24. + 0.25);
  ASSERT_TRUE(bmd_.WriteBMD("b.bmd"));
  EXPECT_EQ(folder_.Read("b.bmd"), kBMD);
  const BoundedArray<ModelDateTime> dates = bmd_.Times();
  bmd_.SetSeedTime(0);
  EXPECT_EQ(bmd_.Times(), dates);
  EXPECT_NEAR(bmd_.Time(2), dates[2], 1e-9);
  EXPECT_EQ(ErrorOf([&] { bmd_.SetSeedTime(-1); }), 6);
  bmd_.EraseData();
  EXPECT_EQ(bmd_.VarMax(1), 10);
  EXPECT_EQ(ErrorOf([&] { bmd_.ConcVar(1); }) + ErrorOf([&] { bmd_.Time(1); }), 9 + 9);
  EXPECT_EQ(ErrorOf([&] { bmd_.WriteBMD("b.bmd"); }) + ErrorOf([&] { bmd_.VarMax(3); }), 9 + 9);
  EXPECT_EQ(folder_.Read("b.bmd") + folder_.Entries(), kBMD + "a.bmd b.bmd");
}

TEST_F(BMDFiles, AreMadeAnew) {
  EXPECT_FALSE(bmd_.WriteBMD("a.bmd"));
  EXPECT_EQ(ui_.LastMessage(), "This BMD file could contain no data so it was not written.");
  bmd_.InitializeBMD(1, 3, 400, 86400);
  ConcBlock concs(1, 3, 400);
  for (int i = 0; i < 1200; ++i) concs.Data()[i] = static_cast<float>((i / 3 + 1) * (i % 3) - 300);
  concs(1, 2, 7) = std::nanf("");
  bmd_.SetConcs(std::move(concs));
  bmd_.SetTimes(Filled(400, 36527.0));
  bmd_.SetTimeOffset(-12);
  bmd_.SetVarName(1, " A name of €uros \0and more "s);
  bmd_.SetSegName(2, "Четырнадцать");
  ASSERT_TRUE(bmd_.WriteBMD("a.bmd") && bmd_.ReadBMD("a.bmd", false));
  EXPECT_EQ(bmd_.VarName(1) + bmd_.SegName(2) + bmd_.SegName(3), "A name of €uros anЧетырна");
  EXPECT_EQ(bmd_.VarSegMin(1, 2) + bmd_.VarSegMax(1, 2) + bmd_.VarMax(1), -299 + 100 + 500);
  EXPECT_EQ(bmd_.Time(1), 36527);
  EXPECT_EQ(bmd_.StartTime(), 36527.5 - 368);
}

TEST_F(BMDFiles, LargerThanMemoryOpenForTheirNamesAndExtremes) {
  const std::uint64_t extremes = 78 + 300 + 4ULL * 10 * 100 * 1'600'000 + 8 * 1'600'000;
  std::ofstream(folder_.Write("a.bmd", Header(100, 1'600'000, 10)), std::ios::in)
      .seekp(static_cast<std::streamoff>(extremes + 9 * 8))
      .write(Bytes(-7.F).data(), 4);
  std::filesystem::resize_file("a.bmd", extremes + 80 + 8000);
  ASSERT_TRUE(bmd_.ReadBMD("a.bmd", true));
  EXPECT_TRUE(bmd_.LowMemory() && !bmd_.IsDataLoaded() && bmd_.VarMin(10) == -7);
  EXPECT_EQ(bmd_.SegName(100), "Segment 100");
  EXPECT_FALSE(Load("a.bmd"));
  EXPECT_THAT(ui_.LastMessage(), testing::HasSubstr("time steps (3431). You cannot edit this"));
}

TEST_F(BMDFiles, DamageIsToldWithTheSizes) {
  const std::pair<std::string, std::string> rows[] = {
      {"BMD", "past end of file: a header of 78 bytes is expected, but the file has 3"},
      {kBMD.substr(0, 310), "3 segments over 2 time steps take 311 bytes, but the file has 310"},
      {kBMD + "x", "3 segments over 2 time steps take 311 bytes, but the file has 312"},
      {ReplaceAll(kBMD, Bytes(3, 2, 2), Bytes(3, 1, 2)), "time steps take 279 bytes, but the file"},
      {std::string(99, 'B'), "time steps take 5494786731563912794507083336 bytes, but the file"},
      {Header(1, -2, 3), "out of range: 3 variables at 1 segments over -2 time steps cannot be"},
      {ReplaceAll(kBMD, Bytes(0.25), Bytes(std::nan(""))), "mismatch: a time step has no valid"},
  };
  for (const auto& [bytes, message] : rows) {
    EXPECT_FALSE(Load("b.bmd", bytes));
    EXPECT_THAT(ui_.LastMessage(), testing::HasSubstr(message));
  }
  EXPECT_THAT(ui_.LastMessage(), testing::EndsWith("Last line read was: \r\n\r\nInput aborted."));
  ASSERT_TRUE(bmd_.ReadBMD(folder_.Write("a.bmd", kBMD), false));
  EXPECT_EQ(ErrorOf([&] { bmd_.ReadBMD(folder_.Write("a.bmd", rows[1].first), true); }), 62);
  EXPECT_FALSE(bmd_.ReadBMD(folder_.Write("a.bmd", ""), true) || bmd_.ReadBMD("none", true));
  EXPECT_FALSE(bmd_.ReadBMD(folder_.Write("a.bmd", std::string(78, '\0')), true));
  EXPECT_EQ(ui_.LastMessage(), "This BMD file contains no data.");
  EXPECT_EQ(bmd_.Conc(2, 3, 2), 1);
}

TEST_F(BMDFiles, AreShownAtTheNetworkAsFarAsARecordHoldsThem) {
  network_.BranchCount = 1;
  network_.Branches[1].XSectCount = 2;
  ASSERT_TRUE(LoadHeader(folder_.Write("a.bmd", kBMD)));
  EXPECT_EQ(tables_.ConstituentShort[2], "Temp");
  ASSERT_TRUE(Load("a.bmd"));
  EXPECT_EQ(aux_.Description[1] + aux_.XSect[2].Name + aux_.XSect[3].Name,
            "BMD FileMillFifteen letters");
  EXPECT_EQ(aux_.XSect[2].Values(1, 2) + aux_.XSect[3].Values(2, 2), -4);
  EXPECT_TRUE(aux_.Times[2] == kOrigin - 0.5 && aux_.ActiveNode[3] && aux_.ActiveConst[2] &&
              !aux_.ActiveConst[3]);
  EXPECT_EQ(tables_.ConstituentUnits[1] + tables_.ConstituentLong[2], "cfsAmmonia, dissolved");
  ui_.Answers = {Answer::Abort};
  EXPECT_FALSE(Save());
  EXPECT_THAT(std::exchange(ui_.Messages, {}).back().Text,
              testing::HasSubstr("a.bmd holds results of a model, which are viewed and not saved"));
  const auto load = [&](int vars, int segments) {
    bmd_.InitializeBMD(vars, segments, 1, 0);
    return bmd_.WriteBMD("a.bmd") && Load("a.bmd");
  };
  ASSERT_TRUE(load(50, 500));
  const AuxData before = aux_;
  EXPECT_FALSE(load(1, 501));
  EXPECT_THAT(ui_.LastMessage(), testing::HasSubstr("501 is not within 0 to 500"));
  EXPECT_FALSE(load(51, 1));
  EXPECT_EQ(ui_.LastMessage(),
            "There are more variables in the BMD file (51) than can be accommodated by "
            "Lomaris (50).");
  window_.PollsToCancel = 1;
  EXPECT_FALSE(load(2, 2));
  EXPECT_EQ(ui_.Messages.size(), 2U);
  EXPECT_EQ(aux_, before);
  EXPECT_EQ(tables_.ConstituentShort.Count(), 50);
}

}  // namespace
}  // namespace lomaris
