#include "model/kinetic_catalogue.h"

#include <cstdint>
#include <string_view>

#include "core/numbers.h"
#include "core/text.h"

namespace lomaris {
namespace {

// A row a line: grid row, name, units, typical, mnemonic, default. The place of a row is the
// position of the value.

constexpr std::string_view kGlobal =
    " 7;Theta for CBODu1 Decay;;1.047;TH_K1;1.047;"
    "22;Theta for Denitrification for CBODu1;;1.047;TH_KDN;1;"
    "10;Theta for Organic Nitrogen to NH3 Transformation;;1.047;TH_K1N;1.047;"
    "11;Theta for Ammonia to NO3 Transformation;;1.085;TH_KNH3;1.085;"
    "24;Theta for Sediment Denitrification;;;TH_KDN02;1;"
    "16;Theta for Benthic Ortho Phosphate Release Rate;;1.074;TH_BENP;1;"
    "17;Theta for Benthic Ammonia Release Rate;;1.074;TH_BENN;1;"
    " 6;Theta for Sediment Oxygen Demand;;1.065;TH_SOD;1.065;"
    " 5;Theta for Reaeration;;1.024;TH_K2;1.024;"
    "12;Theta for Fecal Coliform Die-off;;1.047;TH_COLIF;1.047;"
    "23;Theta for Denitrification for CBODu2;;1.047;TH_ADN2;1;"
    " 8;Theta for CBODu2 Decay;;1.047;TH_BOD2;1.047;"
    "13;Theta for Arbituary Constituent 1 Decay;;;TH_ARB1;1;"
    "14;Theta for Arbituary Constituent 2 Decay;;;TH_ARB2;1;"
    "18;Theta for Phytoplankton Growth;;1.047;TH_AGRO;1;"
    "19;Theta for Phytoplankton Death;;1.047;TH_ADIE;0;"
    "20;Theta for Macrophyte Growth;;;TH_MGRO;1;"
    "21;Theta for Macrophyte Death;;;TH_MDIE;1;"
    " 9;Theta for NBODu Decay;;1.047;TH_NBOD;1.047;"
    "15;Theta for Ortho Phosphate Loss;;;TH_SORP;1.04;"
    "25;Theta for Bottom Heat Flux;;;TH_BHEAT;1;"
    "31;Phytoplankton Phosphorus Content;mg P/mg B;0.01;APCONT;0.01;"
    "32;Phytoplankton Nitrogen Content;mg N/mg B;0.07 - 0.1;ANCONT;0.075;"
    "33;Macrophyte Phosphorus Content;mg P/mg B;;MPCONT;0.01;"
    "34;Macrophyte Nitrogen Content;mg N/mg B;0.02 - 0.4;MNCONT;0.075;"
    "27;Oxygen/Nitrogen Ratio for Denitrification;mg O2/mg N;0.35;ONEQUI;0.35;"
    "26;Oxygen/Nitrogen Ratio for Nitrification;mg O2/mg N;4.57;ONITRI;4.33;"
    "28;Oxygen Consumption by Plant Decay;mg O2/mg B;1.59;OPDECY;1.59;"
    "29;Oxygen Consumption by Iron Oxidation;mg O2/mg Fe;;OFEDEC;0.14;"
    "30;Oxygen Consumption by Manganese Oxidation;mg O2/mg Mn;;OMNDEC;0.15;"
    "35;Time of Sunrise;Hour;0 to 24;DAWN;6;"
    "36;Time of Sunset;Hour;0 to 24;SUNSET;18;"
    " 4;Ref. Elev. for DO Sat. Correction & Temp. Calcs.;feet-msl;;ELEV0;0;"
    " 2;DO Saturation Equation Option;(0=APHA, 1=ASCE);0 or 1;NDOSAT;0;"
    " 3;Elevation Correction for DO Saturation Option;(0=Yes, 1=No);0 or 1;IOPT_EL;1;"
    " 1;Covar Reaeration Option;(0=No, 1=Yes);0 or 1;ICOVAR;1;";

constexpr std::string_view kBranch =
    " 1;Top of Branch Dam Reaeration Option;(0=No, 1=Yes);0 or 1;IDAM0;0;"
    " 2;Top of Branch Dam Reaeration Coefficient;;0.045;DAMK0;0;"
    "19;CBODu1 Denitrification Rate;1/day @ 20°C;0.0 - 1.0;ADN;0;"
    " 7;Ammonia to NO3 Transform Rate;1/day @ 20°C;0.025 - 6;AKN;0.05;"
    " 4;Bottom Heat Exchange Rate;1/day @ 20°C;;ATB;0;"
    "43;Surface Heat Exchange Coefficient (for Equilbrium Temp Method);Watts/m²-°C;;ATS;0;"
    " 9;Ortho Phosphate Loss Rate;1/day @ 20°C;;APO4;0.05;"
    "23;Phytoplankton Decay Rate;1/day @ 20°C;0.05 - 0.5;KALGDK;0;"
    "22;Phytoplankton Growth Rate;1/day @ 20°C;1 - 3;KALGGRO;0;"
    "33;NO3 Conc. at which Denitrification is ½ Rate;mg/L;;KNCBDN;0;"
    "34;DO Conc. at which Algal Death is ½ Max Rate;mg/L;;KOALDK;0;"
    "32;DO Conc. at which Denitrification is ½ Max Rate;mg/L;0.1;KOCBDN;0;"
    "28;DO Conc. at which CBODu1 Decay is ½ Max Rate;mg/L;;KOCB1;0;"
    "31;DO Conc. at which Nitrification is ½ Max Rate;mg/L;;KON;0;"
    "42;Stream Temperature (for Equilbrium Temp Method);°C;;TDUM;0;"
    " 5;Source/Sink Temperature for Bottom Heat Exchange;°C;;TSINK;25;"
    "10;Mangenese Oxidation Rate;1/day @ 20°C;;KMNDK;0;"
    "11;Iron Oxidation Rate;1/day @ 20°C;;KFEDK;0;"
    "27;DO Threshold for Iron and Manganese Oxidation;mg/L;;OXIDAT;0;"
    "41;Surface Light Intensity at Local Noon (for Equilbrium Temp Method);Watts/m²;;HNEFSW;0;"
    "35;NH3+NO3 Conc. at which Algal Growth Rate is ½ Max Rate;mg/L;0.01 - 0.3;KNPOOL;0;"
    "36;Total Phosphorus Conc. at which Algal Growth Rate is ½ Max Rate;mg/L;0.001 - 0.05;KPO4X;0;"
    "21;Sediment Denitrification Rate;1/day @ 20°C;;KDNO2;0;"
    " 6;Organic Nitrogen to NH3 Transform Rate;1/day @ 20°C;0.02 - 0.4;ACK;0.05;"
    "39;Non-Algal Light Extinction Coefficient;1/m;;LAMBDA0;0;"
    "37;Linear Algal Self-shading Coefficient;(1/m)/(ug Chl-a/L);0.0088;LAMBDA1;0;"
    "38;Non-Linear Algal Self-shading Coefficient;(1/m)/(ug Chl-a/L)^2/3;0.054;LAMBDA2;0;"
    "26;Algae to Chlorophyll Conversion Factor;ug Chl-a/mg B;10 - 100;ALPHA0;0;"
    "16;Organic Nitrogen Settling Rate;m/day;0.001 - 0.1;XONS;0;"
    "14;CBODu1 Settling Rate;m/day;-0.36 - 0.36;CBODSR;0;"
    "24;Fraction of Algal/Macrophyte Death which goes to CBODu1;fraction;0 to 1;FCBOD;0;"
    " 8;Organic Phosphorus to Ortho Phosphate Transform Rate;1/day @ 20°C;0.01 - 0.7;KPDK;0.05;"
    "17;Organic Phosphorus Settling Rate;m/day;0.001 - 0.1;KPSET;0;"
    "15;CBODu2 Settling Rate;m/day;-0.36 - 0.36;RBODSR;0;"
    "25;Fraction of Algal/Macrophyte Death which goes to CBODu2;fraction;0 TO 1;FCRBOD;0;"
    "29;DO Conc. at which CBODu2 Decay is ½ Max Rate;mg/L;;RBODDO;0;"
    "20;CBODu2 Denitrification Rate;1/day @ 20°C;0 to 1;ADN2;0;"
    "18;NBODu Settling Rate;m/day;;SRNDOB;0;"
    "30;DO Concentration at which NBODu decay is ½ Max Rate;mg/L;;DONBOD;0;"
    "12;Arbitrary Constituent 1 Decay Rate;1/day @ 20°C;;AKARB1;0;"
    "13;Arbitrary Constituent 2 Decay Rate;1/day @ 20°C;;AKARB2;0;"
    "40;Light Intensity at which Photosynthesis is Reduced by ½;Watts/m²;1.2 - 6;KLITE;0;"
    " 3;Wind Driven Reaeration Option;(0=No, 1=Yes);0 or 1;QWIND0;0;";

constexpr std::string_view kXSect =
    " 1;Constant Dispersion Rate;ft²/sec;;DISPC;0;"
    " 2;Dispersion Coefficient for Equation;;;DISPK;0;"
    " 9;CBODu1 Decay Rate;1/day @ 20°C;0.004 - 4;AK1;0;"
    "10;CBODu2 Decay Rate;1/day @ 20°C;0.004 - 4;KRBOD;0;"
    "11;NBODu Decay Rate;1/day @ 20°C;0 - 2;AKNBOD;0;"
    "12;Fecal Coliform Die-off Rate;1/day @ 20°C;0.05 - 4;ACOLIDK;0;"
    " 8;Sediment Oxygen Demand;g/m²-day;0.05 - 10;SOD;0;"
    "13;Benthic Ortho Phosphate Release Rate;g/m²-day;;BENPO4;0;"
    "14;Benthic Ammonia Release Rate;g/m²-day;;BENNH3;0;"
    "15;Macrophyte Density;g/m²;;MACROB;0;"
    "16;Macrophyte Growth Rate;m²/Watts-day;;MACGRO;0;"
    "17;Macrophyte Death Rate;1/day @ 20°C;;MACDKY;0;"
    "18;Canopy Shading;fraction;0 to 1;CANOPY;0;"
    " 3;Constant Reaeration Rate;m/day;;KREAER;0;"
    " 4;O'Connor - Dobbins Equation Coefficient;;12.9;AG;0;"
    " 5;O'Connor - Dobbins Velocity Exponent;;0.5;K1;0;"
    " 6;O'Connor - Dobbins Depth Exponent;;1.5;K2;0;"
    " 7;Tsivoglou - Wallace Escape Coefficient;1/ft;0.02 - 0.11;TSIV;0;";

constexpr int kFields = 6;

/// Whether a literal has `count` rows of all fields, one for each of the grid's rows.
constexpr bool IsWhole(std::string_view literal, int count) {
  std::uint64_t gridRows = 0;
  int rows = 0;
  for (; !literal.empty(); ++rows) {
    int gridRow = 0;
    for (const char c : literal.substr(0, literal.find(';'))) {
      if (c != ' ') gridRow = gridRow * 10 + (c - '0');
    }
    gridRows |= std::uint64_t{1} << gridRow;
    for (int field = 0; field < kFields; ++field) {
      const std::size_t end = literal.find(';');
      if (end == std::string_view::npos) return false;
      literal.remove_prefix(end + 1);
    }
  }
  return rows == count && gridRows == ((std::uint64_t{1} << count) - 1) << 1;
}
static_assert(IsWhole(kGlobal, kGlobalKinetics));
static_assert(IsWhole(kBranch, kBranchKinetics));
static_assert(IsWhole(kXSect, kXSectKinetics));

void Fill(BoundedArray<KineticParameter>& group, std::string_view literal, Ui& ui) {
  std::string text(literal);
  BoundedArray<std::string> fields(0, group.Count() * kFields - 1);
  int count = 0;
  BreakApart(text, fields, count, ';', ui);
  std::int64_t field = 0;
  for (KineticParameter& parameter : group) {
    parameter.GridRow = ToInteger(fields[field]);
    parameter.Name = fields[field + 1];
    parameter.Units = fields[field + 2];
    parameter.Typical = fields[field + 3];
    parameter.Mnemonic = fields[field + 4];
    parameter.Default = ToSingle(fields[field + 5]);
    field += kFields;
  }
}

}  // namespace

KineticCatalogue BuildCatalogue(Ui& ui) {
  KineticCatalogue catalogue;
  Fill(catalogue.Global, kGlobal, ui);
  Fill(catalogue.Branch, kBranch, ui);
  Fill(catalogue.XSect, kXSect, ui);
  return catalogue;
}

}  // namespace lomaris
