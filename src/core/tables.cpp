#include "core/tables.h"

#include "core/text.h"

namespace lomaris {
namespace {

void Fill(BoundedArray<std::string>& table, std::string literal, Ui& ui) {
  int count = 0;
  BreakApart(literal, table, count, ',', ui);
}

}  // namespace

Tables InitTables(Ui& ui) {
  Tables tables;
  Fill(tables.ConstituentShort,
       "Flow,Temp,CBODu1,Org-N,NH3-N,NO3-N,Org-P,Ortho-P,Diss-Mn,Diss-Fe,DO,Fecal,Algae,CBODu2,"
       "NBODu,Arb-1,Arb-2,Depth",
       ui);
  Fill(tables.ConstituentUnits,
       "cfs,°C,mg/L,mg/L,mg/L,mg/L,mg/L,mg/L,mg/L,mg/L,mg/L,#/100,mg/L,mg/L,mg/L,,,ft", ui);
  Fill(tables.ConstituentLong,
       "Discharge,Temperature,Ultimate CBOD 1,Organic Nitrogen,Ammonia Nitrogen,Nitrate,"
       "Organic Phosphorus,Ortho Phosphate,Dissolved Manganese,Dissolved Iron,Dissolved Oxygen,"
       "Fecal Coliform,Phytoplankton,Ultimate CBOD 2,Ultimate NBOD,Arbitrary Constituent 1,"
       "Arbitrary Constituent 2,Water Depth",
       ui);
  Fill(tables.MetShort, "Cloud,Wind,Dry-Bulb,Wet-Bulb,Press,Solar,Dew Point,Rel Hum", ui);
  Fill(tables.MetUnits, "Fraction,mph,°F,°F,in Hg,KJ/Sq M,°F,%", ui);
  Fill(tables.MetLong,
       "Cloud Cover,Wind Speed,Dry Bulb Temp,Wet Bulb Temp,Atmos. Press.,Solar Rad,"
       "Dew Point Temp,Rel. Humidity",
       ui);
  Fill(tables.FileFilter,
       "Hydrodynamic (*.hnp)|*.hnp|,Water Quality (*.qnp)|*.qnp|,Lateral Inflow (*.lat)|*.lat|,"
       "Withdrawal (*.wit)|*.wit|,Cross Section Library (*.xsg)|*.xsg|,"
       "Boundary Condition (*.bcf)|*.bcf|,Lateral Inflow (*.lat)|*.lat|,"
       "Powerplant (*.pow)|*.pow|,Meteorological (*.met)|*.met|,"
       "Boundary Condition (*.bcf)|*.bcf|,Project (*.prj)|*.prj|,"
       "Import Specification (*.imp*)|*.imp*|,Binary Modeling File (*.bmd)|*.bmd|,"
       "Configuration File (*.cfg)|*.cfg|",
       ui);
  return tables;
}

std::string TypeKey(std::string_view fileName) {
  return UpperCase(fileName.substr(fileName.size() < 3 ? 0 : fileName.size() - 3));
}

}  // namespace lomaris
