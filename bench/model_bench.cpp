// The readers and writers of the model files, each beside a bare pass over the same numbers: the
// limit to come close to. Savers are measured on the disk, where the flush counts as well, and in
// memory.

#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/bare_pass.h"
#include "bench/quiet_ui.h"
#include "core/files.h"
#include "model/hnp_file.h"
#include "model/qnp_file.h"
#include "model/xsg_file.h"

namespace lomaris {
namespace {

constexpr int kBranches = 20;
constexpr int kXSectsPerBranch = 500;
constexpr int kSections = 10000;
constexpr int kPointsPerSection = 50;

float Measured(int i) {
  return 12.5F + static_cast<float>(i % 1787) * 0.37F;
}

HydroInput LargeNetwork() {
  HydroInput hydro;
  hydro.Title = "Benchmark";
  hydro.StartDate = hydro.EndDate = *DateSerial(1997, 5, 1);
  hydro.BranchCount = kBranches;
  for (int i = 1; i <= kBranches; ++i) {
    BranchRec& branch = hydro.Branches[i];
    branch.Name = "Branch " + std::to_string(i);
    branch.XSectCount = kXSectsPerBranch;
    branch.XSects.Resize(kXSectsPerBranch);
    for (int j = 1; j <= kXSectsPerBranch; ++j) {
      const float x = Measured(i * kXSectsPerBranch + j);
      branch.XSects[j] = {.Name = "XS" + std::to_string(i * 1000 + j),
                          .Print = j % 2 == 0,
                          .Lookup = "L" + std::to_string(j),
                          .Length = x * 3,
                          .Flow = x * 7,
                          .Depth = x / 9,
                          .Lateral = x / 5,
                          .Invert = x,
                          .ManningN = 0.035F,
                          .Loss = 0.1F,
                          .N1 = 0.04F,
                          .N2 = 0.001F,
                          .C1 = x / 3,
                          .C2 = x / 7,
                          .C3 = 1.5F};
    }
  }
  return hydro;
}

XSectLibrary LargeLibrary() {
  XSectLibrary library;
  library.XSectCount = kSections;
  library.XSects.Resize(kSections);
  for (int i = 1; i <= kSections; ++i) {
    LibrarySection& section = library.XSects[i];
    section.Name = "S" + std::to_string(i);
    section.Description = "Surveyed section ";
    section.PointCount = kPointsPerSection;
    section.Points.Resize(kPointsPerSection);
    for (int j = 1; j <= kPointsPerSection; ++j) {
      section.Points[j] = {.Station = static_cast<float>(j) * 12.25F,
                           .Depth = Measured(i * 50 + j)};
    }
  }
  return library;
}

/// The water quality of the large network.
QualInput LargeQual(const HydroInput& hydro) {
  QualInput qual;
  qual.Title = hydro.Title;
  qual.StartDate = hydro.StartDate;
  qual.EndDate = hydro.EndDate;
  qual.BranchCount = hydro.BranchCount;
  int i = 0;
  const auto fill = [&](BoundedArray<float>& values) {
    for (float& value : values) value = Measured(++i);
  };
  for (int b = 1; b <= qual.BranchCount; ++b) {
    QualBranchRec& branch = qual.Branches[b];
    branch.Name = hydro.Branches[b].Name;
    fill(branch.BranchKinetics);
    branch.XSectCount = hydro.Branches[b].XSectCount;
    branch.XSects.Resize(branch.XSectCount);
    for (int x = 1; x <= branch.XSectCount; ++x) {
      QualXSectRec& xsect = branch.XSects[x];
      xsect.Name = hydro.Branches[b].XSects[x].Name;
      for (auto* values : {&xsect.InitialConc, &xsect.LateralConc, &xsect.XSectKinetics}) {
        fill(*values);
      }
    }
  }
  return qual;
}

/// The numbers that the writers have to write.
std::vector<float> NumbersOf(const HydroInput& hydro) {
  std::vector<float> numbers;
  for (const BranchRec& branch : hydro.Branches) {
    for (const XSectRec& x : branch.XSects) {
      numbers.insert(numbers.end(), {x.Length, x.Flow, x.Depth, x.Lateral, x.Invert, x.C1, x.C2,
                                     x.C3, x.ManningN, x.Loss, x.N1, x.N2, x.Print ? 1.0F : 0.0F});
    }
  }
  return numbers;
}

std::vector<float> NumbersOf(const QualInput& qual) {
  std::vector<float> numbers;
  for (const QualBranchRec& branch : qual.Branches) {
    for (const QualXSectRec& x : branch.XSects) {
      for (const auto* values : {&x.InitialConc, &x.LateralConc, &x.XSectKinetics}) {
        numbers.insert(numbers.end(), values->begin(), values->end());
      }
    }
  }
  return numbers;
}

std::vector<float> NumbersOf(const XSectLibrary& library) {
  std::vector<float> numbers;
  for (const LibrarySection& section : library.XSects) {
    for (const XSectPoint& point : section.Points) {
      numbers.insert(numbers.end(), {point.Depth, point.Station});
    }
  }
  return numbers;
}

void LoadHNP(benchmark::State& state) {
  const Folder folder(false);
  QuietUi ui;
  ProjectData project;
  HydroInput hydro = LargeNetwork();
  SaveHNPFile(hydro, project, ui, folder.File("a.hnp"));
  for (auto _ : state) LoadHNPFile(hydro, project, ui, folder.File("a.hnp"));
  if (ui.Boxes() > 0) state.SkipWithError("the file was not read");
}
BENCHMARK(LoadHNP)->Unit(benchmark::kMillisecond);

void LoadHNPRival(benchmark::State& state) {
  const Folder folder(false);
  QuietUi ui;
  ProjectData project;
  HydroInput hydro = LargeNetwork();
  SaveHNPFile(hydro, project, ui, folder.File("a.hnp"));
  for (auto _ : state) benchmark::DoNotOptimize(SumOfNumbers(folder.File("a.hnp")));
}
BENCHMARK(LoadHNPRival)->Unit(benchmark::kMillisecond);

void SaveHNP(benchmark::State& state) {
  const Folder folder(state.range(0) != 0);
  QuietUi ui;
  ProjectData project;
  HydroInput hydro = LargeNetwork();
  for (auto _ : state) SaveHNPFile(hydro, project, ui, folder.File("a.hnp"));
  if (ui.Boxes() > 0) state.SkipWithError("the file was not written");
}
BENCHMARK(SaveHNP)->ArgName("disk")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void SaveHNPRival(benchmark::State& state) {
  const Folder folder(state.range(0) != 0);
  const std::vector<float> numbers = NumbersOf(LargeNetwork());
  for (auto _ : state) {
    WriteWholeFile(folder.File("a.hnp"), BareText(numbers), Backup::OneGeneration);
  }
}
BENCHMARK(SaveHNPRival)
    ->ArgName("disk")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void LoadQNP(benchmark::State& state) {
  const Folder folder(false);
  QuietUi ui;
  ProjectData project;
  const HydroInput hydro = LargeNetwork();
  QualInput qual = LargeQual(hydro);
  SaveQNPFile(qual, project, ui, folder.File("a.qnp"));
  for (auto _ : state) LoadQNPFile(qual, project, hydro, ui, folder.File("a.qnp"));
  if (ui.Boxes() > 0) state.SkipWithError("the file was not read");
}
BENCHMARK(LoadQNP)->Unit(benchmark::kMillisecond);

void LoadQNPRival(benchmark::State& state) {
  const Folder folder(false);
  QuietUi ui;
  ProjectData project;
  QualInput qual = LargeQual(LargeNetwork());
  SaveQNPFile(qual, project, ui, folder.File("a.qnp"));
  for (auto _ : state) benchmark::DoNotOptimize(SumOfNumbers(folder.File("a.qnp")));
}
BENCHMARK(LoadQNPRival)->Unit(benchmark::kMillisecond);

void SaveQNP(benchmark::State& state) {
  const Folder folder(state.range(0) != 0);
  QuietUi ui;
  ProjectData project;
  QualInput qual = LargeQual(LargeNetwork());
  for (auto _ : state) SaveQNPFile(qual, project, ui, folder.File("a.qnp"));
  if (ui.Boxes() > 0) state.SkipWithError("the file was not written");
}
BENCHMARK(SaveQNP)->ArgName("disk")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void SaveQNPRival(benchmark::State& state) {
  const Folder folder(state.range(0) != 0);
  const std::vector<float> numbers = NumbersOf(LargeQual(LargeNetwork()));
  for (auto _ : state) {
    WriteWholeFile(folder.File("a.qnp"), BareText(numbers), Backup::OneGeneration);
  }
}
BENCHMARK(SaveQNPRival)
    ->ArgName("disk")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void LoadXSG(benchmark::State& state) {
  const Folder folder(false);
  QuietUi ui;
  const ProjectData project;
  XSectLibrary library = LargeLibrary();
  SaveXSGFile(library, project, ui, folder.File("a.xsg"));
  for (auto _ : state) LoadXSGFile(library, project, ui, folder.File("a.xsg"));
  if (ui.Boxes() > 0) state.SkipWithError("the file was not read");
}
BENCHMARK(LoadXSG)->Unit(benchmark::kMillisecond);

void LoadXSGRival(benchmark::State& state) {
  const Folder folder(false);
  QuietUi ui;
  const ProjectData project;
  XSectLibrary library = LargeLibrary();
  SaveXSGFile(library, project, ui, folder.File("a.xsg"));
  for (auto _ : state) benchmark::DoNotOptimize(SumOfNumbers(folder.File("a.xsg")));
}
BENCHMARK(LoadXSGRival)->Unit(benchmark::kMillisecond);

void SaveXSG(benchmark::State& state) {
  const Folder folder(state.range(0) != 0);
  QuietUi ui;
  const ProjectData project;
  XSectLibrary library = LargeLibrary();
  for (auto _ : state) SaveXSGFile(library, project, ui, folder.File("a.xsg"));
  if (ui.Boxes() > 0) state.SkipWithError("the file was not written");
}
BENCHMARK(SaveXSG)->ArgName("disk")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void SaveXSGRival(benchmark::State& state) {
  const Folder folder(state.range(0) != 0);
  const std::vector<float> numbers = NumbersOf(LargeLibrary());
  for (auto _ : state) {
    WriteWholeFile(folder.File("a.xsg"), BareText(numbers, std::chars_format::fixed, 2),
                   Backup::OneGeneration);
  }
}
BENCHMARK(SaveXSGRival)
    ->ArgName("disk")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace lomaris
