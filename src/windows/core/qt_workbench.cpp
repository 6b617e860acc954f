#include "windows/core/qt_workbench.h"

#include <QApplication>
#include <algorithm>
#include <utility>

#include "core/error_report.h"
#include "core/files.h"
#include "core/window_position.h"
#include "model/network_in_memory.h"
#include "windows/core/qt_text.h"
#include "windows/core/window_placement.h"
#include "workspace/file_edit.h"

namespace lomaris {
namespace {

/// The windows on the screen; menus and tool tips are windows of their own kind and none of ours.
QList<QPointer<QWidget>> OpenWindows() {
  QList<QPointer<QWidget>> windows;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    const Qt::WindowType type = window->windowType();
    if (window->isVisible() && (type == Qt::Window || type == Qt::Dialog)) windows << window;
  }
  return windows;
}

QList<QPointer<EditorWindow>> OpenEditors() {
  QList<QPointer<EditorWindow>> editors;
  for (const QPointer<QWidget>& window : OpenWindows()) {
    if (auto* editor = qobject_cast<EditorWindow*>(window)) editors << editor;
  }
  return editors;
}

std::string SectionOf(const std::string& kind) {
  return kind + "Startup";
}

}  // namespace

QtWorkbench::QtWorkbench(HydroInput& hydro, ProjectData& project, Ui& ui, Settings& settings)
    : hydro_(hydro), project_(project), ui_(ui), settings_(settings) {}

void QtWorkbench::AddEditor(const std::string& kind, Instances instances, EditorFactory factory) {
  editors_[kind] = {instances, std::move(factory), {}};
}

void QtWorkbench::SetProjectWindow(QWidget* window, std::function<void()> refresh) {
  projectWindow_ = window;
  refresh_ = std::move(refresh);
}

bool QtWorkbench::OffersEditor(const std::string& kind) const {
  return editors_.contains(kind);
}

void QtWorkbench::FileEdit(const EditRequest& request) {
  Trap trap(ui_, "FileEdit");
  std::optional<EditRequest> prepared;
  QPointer<EditorWindow> window;
  trap.Run([&] { prepared = PrepareFileEdit(request, hydro_, project_, ui_, *this); });
  if (!prepared) return;
  if (!OffersEditor(prepared->Kind)) {
    ui_.ShowMessage({.Text = "There is no editor for this type of file: " + prepared->Kind});
    return;
  }
  if (IsOpenElsewhere(*prepared)) return;
  const bool isNew = !editors_.at(prepared->Kind).Open;
  trap.Run([&] { window = ShowEditor(prepared->Kind); });
  const StepEnd end = trap.Run([&] {
    if (window) window->Initialize(*prepared);
  });
  if (end == StepEnd::Left && isNew && window) window->close();
}

EditorWindow* QtWorkbench::ShowEditor(const std::string& kind) {
  Editor& editor = editors_.at(kind);
  QPointer<EditorWindow> window = editor.Open;
  if (!window) {
    window = editor.Factory();
    window->setAttribute(Qt::WA_DeleteOnClose);
    PlaceWindow(*window, settings_, SectionOf(kind));
    StoreOnClosing(*window, kind);
    if (editor.Count == Instances::One) editor.Open = window;
  } else {
    // The one window of its type stays where the user has put it.
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
  }
  window->show();
  window->raise();
  window->activateWindow();
  ui_.DoEvents();
  return window;
}

void QtWorkbench::StoreOnClosing(EditorWindow& window, const std::string& kind) {
  QObject::connect(&window, &EditorWindow::Closing, &window, [this, &window, kind] {
    const WindowPosition position = PositionOf(window);
    if (position.State == WindowState::Normal) StorePosition(settings_, SectionOf(kind), position);
    // It lives on until the event loop comes round; the next file is not to go to it.
    Editor& editor = editors_[kind];
    if (editor.Open == &window) editor.Open.clear();
  });
}

/// Null when no window edits the file.
EditorWindow* QtWorkbench::EditorOf(const std::string& fileName) const {
  for (const QPointer<EditorWindow>& editor : OpenEditors()) {
    if (editor && SameFile(editor->FileName(), fileName, project_.FileName)) return editor;
  }
  return nullptr;
}

bool QtWorkbench::EditsFile(const std::string& fileName) const {
  return EditorOf(fileName) != nullptr;
}

/// True, after showing it, when another window has the file under another spelling of its name,
/// which the captions would not tell.
bool QtWorkbench::IsOpenElsewhere(const EditRequest& request) const {
  EditorWindow* const editor = EditorOf(request.FileName);
  if (editor == nullptr || editor == editors_.at(request.Kind).Open) return false;
  ui_.ShowMessage({.Text = kOpenOnce});
  editor->raise();
  editor->activateWindow();
  return true;
}

/// Taking a cell may turn the event loop, and close windows.
std::vector<std::string> QtWorkbench::UnsavedFiles() {
  std::vector<std::string> names;
  for (const QPointer<EditorWindow>& editor : OpenEditors()) {
    if (!editor || !editor->HasUnsavedChanges() || !editor) continue;
    const std::string name = editor->FileName();
    names.push_back(name.empty() ? FromQt(editor->windowTitle()) : name);
  }
  if (hydro_.Dirty && !EditsNetwork()) names.push_back(hydro_.FileName);
  std::ranges::sort(names);
  return names;
}

/// The network goes last: a library that is closed may take names back in it, or ask to save it.
bool QtWorkbench::CloseOtherWindows() {
  const QString spared = projectWindow_ ? projectWindow_->windowTitle() : QString();
  for (const QPointer<QWidget>& window : OpenWindows()) {
    const auto* editor = qobject_cast<EditorWindow*>(window);
    if (editor != nullptr && editor->EditsNetwork()) continue;
    if (window && window->windowTitle() != spared && !window->close()) return false;
  }
  return ReleaseNetwork();
}

void QtWorkbench::RefreshProjectWindow() {
  if (refresh_) refresh_();
}

bool QtWorkbench::EditsNetwork() const {
  return std::ranges::any_of(OpenEditors(), [](const auto& each) { return each->EditsNetwork(); });
}

/// What its editor was told not to save is not asked about again.
bool QtWorkbench::ReleaseNetwork() {
  for (const QPointer<EditorWindow>& editor : OpenEditors()) {
    if (editor && editor->NeedsNetwork() && !editor->close()) return false;
  }
  for (const QPointer<EditorWindow>& editor : OpenEditors()) {
    if (!editor || !editor->EditsNetwork()) continue;
    if (!editor->close()) return false;
    if (hydro_.Dirty) hydro_ = HydroInput();
  }
  const bool released = SaveNetworkFirst(hydro_, project_, ui_);
  RefreshProjectWindow();
  return released;
}

void QtWorkbench::LookupsRenamed(const std::string& from, const std::string& to,
                                 const std::vector<std::string>& xsects) {
  for (const QPointer<EditorWindow>& editor : OpenEditors()) {
    if (editor) editor->LookupsRenamed(from, to, xsects);
  }
}

void QtWorkbench::LibrarySaved(const std::string& fileName) {
  for (const QPointer<EditorWindow>& editor : OpenEditors()) {
    if (editor) editor->LibrarySaved(fileName);
  }
}

bool FileAlreadyOpen(const QString& caption, Ui& ui) {
  const auto hasCaption = [&](const QPointer<QWidget>& window) {
    return window->windowTitle() == caption;
  };
  if (std::ranges::count_if(OpenWindows(), hasCaption) <= 1) return false;
  ui.ShowMessage({.Text = kOpenOnce});
  return true;
}

}  // namespace lomaris
