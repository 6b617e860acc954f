#pragma once

#include <QPointer>
#include <functional>
#include <map>
#include <string>

#include "core/ports/settings.h"
#include "core/ports/ui.h"
#include "core/ports/workbench.h"
#include "model/hydro_input.h"
#include "model/project_data.h"
#include "windows/core/editor_window.h"

namespace lomaris {

/// Makes an editor. The workbench shows it and hands it its file.
using EditorFactory = std::function<EditorWindow*()>;

/// How many windows of a type there may be at a time.
enum class Instances { One, Many };

/// The open windows. Editors join by their type key ("HNP" ...); a type that none has joined for is
/// not offered.
class QtWorkbench : public Workbench {
 public:
  QtWorkbench(HydroInput& hydro, ProjectData& project, Ui& ui, Settings& settings);

  /// `Instances::One`: a second file of the type goes to the window of the first.
  void AddEditor(const std::string& kind, Instances instances, EditorFactory factory);

  /// Names the project window, which `CloseOtherWindows` spares, and what brings it in line with
  /// the project record.
  void SetProjectWindow(QWidget* window, std::function<void()> refresh);

  bool OffersEditor(const std::string& kind) const override;

  void FileEdit(const EditRequest& request) override;

  bool EditsFile(const std::string& fileName) const override;
  std::vector<std::string> UnsavedFiles() override;
  bool CloseOtherWindows() override;
  void RefreshProjectWindow() override;

  bool EditsNetwork() const override;
  bool ReleaseNetwork() override;
  void LookupsRenamed(const std::string& from, const std::string& to,
                      const std::vector<std::string>& xsects) override;
  void LibrarySaved(const std::string& fileName) override;

 private:
  struct Editor {
    Instances Count = Instances::Many;
    EditorFactory Factory;
    QPointer<EditorWindow> Open;  ///< the one window of `Instances::One`
  };

  EditorWindow* EditorOf(const std::string& fileName) const;
  bool IsOpenElsewhere(const EditRequest& request) const;
  EditorWindow* ShowEditor(const std::string& kind);
  void StoreOnClosing(EditorWindow& window, const std::string& kind);

  HydroInput& hydro_;
  ProjectData& project_;
  Ui& ui_;
  Settings& settings_;
  std::map<std::string, Editor> editors_;
  QPointer<QWidget> projectWindow_;
  std::function<void()> refresh_;
};

/// True, after telling so, when more than one open window has this caption. An editor calls it when
/// it has set its own, which counts, and then closes itself.
bool FileAlreadyOpen(const QString& caption, Ui& ui);

}  // namespace lomaris
