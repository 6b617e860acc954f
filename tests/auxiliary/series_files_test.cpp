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

struct Layout {
  const char* File;
  const std::string& Text;
  std::string Shape;
};

TEST_F(AuxFiles, HaveTheirLayoutAndComeBack) {
  const Layout rows[] = {
      {"a.lat", kLAT, kShapeLAT},
      {"B.WIT", kWIT,
       "2 2 0 2 i0 h0 | 2 Mill 0  s1 *1 *0.5 3 5 of 1 | 3 Weir 0  s1 *-1 *1 4.5 -6 of 1"},
      {"c.pow", kPOW,
       "1 2 1 1 i1 h1 | 2 Mill 1 Head s1 *1 *2 10 s2 *3 *4 71.5 of 2"
       " | 4 Brook 3 Weir s1 *1 *1 20 s2 *1 *1 72 of 2"}};
  for (const Layout& row : rows) {
    ASSERT_TRUE(Load(row.File, row.Text)) << ui_.LastMessage();
    EXPECT_EQ(Shape(aux_), row.Shape);
    EXPECT_FALSE(aux_.Modified);
    aux_.Modified = true;
    folder_.Write(row.File, "old");
    ASSERT_TRUE(Save());
    EXPECT_FALSE(aux_.Modified);
    EXPECT_EQ(folder_.Read(row.File), row.Text);
    AuxData read = aux_;
    ASSERT_TRUE(LoadHeader(row.File));
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

}  // namespace
}  // namespace lomaris
