#pragma once

#include <cstdint>
#include <string>

#include "auxiliary/bmd_file.h"
#include "core/dates.h"
#include "core/ports/ui.h"

namespace lomaris {

/// A binary modeling file: results of a model, variables at segments over time steps, all counted
/// from 1. An index outside the counts is run-time error 9, and so is a value or a time that is not
/// in memory. Failures of the disk, and of a file that is no such file, are thrown as RuntimeError;
/// the object is then as it was before.
class clsBMD {
 public:
  explicit clsBMD(Ui& ui) : ui_(ui) {}

  /// Reads a file. With `lowMemory`, for files larger than memory, only names and extremes. False
  /// without a message when there is no file of that name or it is empty; false, having told it,
  /// when it holds no data. The object is then as it was before.
  bool ReadBMD(const std::string& fileName, bool lowMemory);

  /// Takes the counts and sizes all tables, for a file that is to be written; all is empty or 0.
  void InitializeBMD(std::int32_t numVars, std::int32_t numSegments, std::int32_t numTimes,
                     double seedTime);

  /// Gives back the memory of the values and the stored times.
  void EraseData();

  /// Writes a file and brings the extremes, `StartTime` and `EndTime` up to date with it. False,
  /// having told it, when one of the counts is 0.
  bool WriteBMD(const std::string& fileName);

  bool IsDataLoaded() const { return isDataLoaded_; }  ///< by a read that was not of low memory
  bool LowMemory() const { return lowMemory_; }        ///< of the last read

  /// Hours that are added to every date-time read, and taken off on writing. Dates of a file that
  /// was read move with it; dates that the caller has set for a new file are his own and stay.
  void SetTimeOffset(std::int16_t hours);

  double VarSegMax(std::int32_t var, std::int32_t seg) const { return OfSegment(var, seg).Max; }
  double VarSegMin(std::int32_t var, std::int32_t seg) const { return OfSegment(var, seg).Min; }
  double VarMax(std::int32_t var) const { return content_.Ranges.OfVars[var].Max; }
  double VarMin(std::int32_t var) const { return content_.Ranges.OfVars[var].Min; }

  /// A variable at a segment by time step, and at all of them: [segment][time step].
  BoundedArray<double> ConcVarSeg(std::int32_t var, std::int32_t seg) const;
  BoundedArray<BoundedArray<double>> ConcVar(std::int32_t var) const;

  const ConcBlock& Concs() const { return content_.Concs; }
  void SetConcs(ConcBlock concs);  ///< error 9 when it is not of the file's counts
  double Conc(std::int32_t var, std::int32_t seg, std::int32_t time) const {
    return content_.Concs(var, seg, time);
  }

  /// Seconds from 1 January 1901 00:00 to the origin of the stored times, 0 to 4294967295; error 6
  /// for others. The dates stay when it is set, and are stored anew.
  double SeedTime() const;
  void SetSeedTime(double seconds);

  const BoundedArray<ModelDateTime>& Times() const { return dates_; }
  void SetTimes(BoundedArray<ModelDateTime> times);  ///< error 9 for another number of them
  ModelDateTime Time(std::int32_t n) const { return DateOf(content_.StoredTimes[n]); }

  /// Texts are without blanks at their ends, and cut to the size of their field.
  const std::string& VarUnits(std::int32_t var) const { return content_.VarUnits[var]; }
  void SetVarUnits(std::int32_t var, const std::string& units);
  const std::string& VarName(std::int32_t var) const { return content_.VarName[var]; }
  void SetVarName(std::int32_t var, const std::string& name);
  const std::string& SegName(std::int32_t seg) const { return content_.SegName[seg]; }
  void SetSegName(std::int32_t seg, const std::string& name);

  /// Largest and smallest of the stored times, in days from the time origin, as the file's header
  /// has them.
  double EndTime() const { return content_.EndTime; }
  double StartTime() const { return content_.StartTime; }

  std::int32_t NumVars() const { return content_.NumVars; }
  std::int32_t NumTimes() const { return content_.NumTimes; }
  std::int32_t NumSegments() const { return content_.NumSegments; }

 private:
  const Extremes& OfSegment(std::int32_t var, std::int32_t seg) const;

  /// The date-time of stored time 0.
  ModelDateTime Origin() const;
  ModelDateTime DateOf(double storedTime) const { return Origin() + storedTime; }
  void DateStoredTimes();
  void StoreDates();

  Ui& ui_;
  BMDContent content_;
  BoundedArray<ModelDateTime> dates_;  ///< of the stored times
  std::int16_t timeOffset_ = 0;        ///< h
  bool isDataLoaded_ = false;
  bool lowMemory_ = false;
};

}  // namespace lomaris
