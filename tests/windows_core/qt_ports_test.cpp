#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <filesystem>

#include <gmock/gmock.h>

#include "core/files.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"
#include "windows/core/file_dialog.h"
#include "windows/core/file_filter.h"
#include "windows/core/message_text.h"
#include "windows/core/qt_settings.h"
#include "windows/core/qt_shell.h"
#include "windows/core/qt_text.h"
#include "windows/core/qt_ui.h"
#include "windows/core/text_program.h"

namespace lomaris {
namespace {

using testing::ElementsAre;

/// Does something to the dialog that is opened next.
template <class Dialog, class Action>
void WhenOpen(Action action) {
  QTimer::singleShot(0, qApp, [action] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    action(*dialog);
  });
}

TEST(QtSettings, KeepAnyTextUnderAnyName) {
  struct Case {
    const char* Section;
    const char* Key;
    const char* Value;
  };
  const Case cases[] = {
      {"BrowseDir", "HNP", "C:\\Rivers\\Upper; and, \"lower\"\\"},
      {"General", "a/b\\c=d", "=[x]\r\n\t%20 ; \xc3\xbc "},
      {"a/b", "c", "@ByteArray(1)"},
      {"a", "b/c", "under a name that is no level of a tree"},
      {"a%2Fb", "c", ""},
  };
  {
    QtSettings settings;
    for (const Case& c : cases) settings.SetValue(c.Section, c.Key, c.Value);
  }
  // From another place, so that it is the file that is read and not what Qt remembers of it.
  const QString written =
      QSettings(QSettings::IniFormat, QSettings::UserScope, "Lomaris", "Lomaris").fileName();
  const TempFolder folder;
  folder.Write("Lomaris/Lomaris.ini", ReadWholeFile(FromQt(written)));
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, ToQt(folder.Path()));
  const QtSettings settings;
  for (const Case& c : cases) EXPECT_EQ(settings.Value(c.Section, c.Key, "none"), c.Value);
  EXPECT_EQ(settings.Value("BrowseDir", "QNP", "none"), "none");
}

TEST(FileFilter, FindsFilesOfAnyCaseAndWithoutAPoint) {
  EXPECT_EQ(QtFilters("Project (*.prj)|*.prj|All files (*.*)|*.*"),
            QStringList({"Project (*.prj) (*.prj *.PRJ)", "All files (*.*) (*)"}));
  EXPECT_EQ(QtFilters("Tables|*.db; *.DBF;*.imp*|"),
            QStringList({"Tables (*.db *.DB *.dbf *.DBF *.imp* *.IMP*)"}));
  EXPECT_EQ(QtFilters(""), QStringList());
}

TEST(MessageText, FitsOnAScreenAndKeepsItsEnd) {
  EXPECT_EQ(MessageText("a\r\nb\nc\rd"), "a\nb\nc\nd");
  const QString endless = MessageText(std::string(1'000'000, 'x') + "\r\nInput aborted.");
  EXPECT_LT(endless.size(), 4500);
  EXPECT_TRUE(endless.endsWith("\nInput aborted."));
  EXPECT_EQ(endless.indexOf(QChar(0x200B)), 20) << "may break within the word";
  const QString tall = MessageText("first" + std::string(3000, '\n') + "last");
  EXPECT_EQ(tall.count('\n'), 30);
  EXPECT_TRUE(tall.startsWith("first") && tall.endsWith("last"));
}

struct BoxCase {
  MessageBox Box;
  const char* Shown;  ///< title, default button
  Answer OnEnter;
  Answer OnEscape;
};

TEST(QtUi, BoxesHaveTheirButtonsAndTheirDefault) {
  const BoxCase cases[] = {
      {{.Text = "<b>a</b>"}, "Lomaris OK", Answer::Ok, Answer::Ok},
      {{.Text = "a", .Title = "Error", .BoxButtons = Buttons::OkCancel},
       "Error OK",
       Answer::Ok,
       Answer::Cancel},
      {{.Text = "a", .BoxButtons = Buttons::YesNoCancel},
       "Lomaris &Yes",
       Answer::Yes,
       Answer::Cancel},
      {{.Text = "a", .BoxButtons = Buttons::YesNo, .DefaultAnswer = Answer::No},
       "Lomaris &No",
       Answer::No,
       Answer::No},
      {{.Text = "a", .BoxButtons = Buttons::AbortRetryIgnore, .DefaultAnswer = Answer::Retry},
       "Lomaris Retry",
       Answer::Retry,
       Answer::Abort},
  };
  QtUi ui;
  for (const BoxCase& c : cases) {
    std::string shown;
    WhenOpen<QMessageBox>([&](QMessageBox& box) {
      EXPECT_EQ(FromQt(box.text()), c.Box.Text);
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      shown = FromQt(box.windowTitle() + " " + box.defaultButton()->text());
      QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(ui.ShowMessage(c.Box), c.OnEnter);
    EXPECT_EQ(shown, c.Shown);
    WhenOpen<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(ui.ShowMessage(c.Box), c.OnEscape);
  }
}

TEST(QtUi, InputBoxesAndListsAnswerOrAreCancelled) {
  QtUi ui;
  const InputBox box{.Prompt = "<i>Replace</i>", .Title = "Replace", .Proposal = "old"};
  WhenOpen<QInputDialog>([](QInputDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QLabel*>()->textFormat(), Qt::PlainText);
    EXPECT_EQ(dialog.textValue(), "old");
    dialog.setTextValue("C:\\new\\");
    dialog.accept();
  });
  EXPECT_EQ(ui.AskText(box), "C:\\new\\");
  WhenOpen<QInputDialog>([](QInputDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(ui.AskText(box), "");

  const std::vector<std::string> rows = {"RESULTS\ttable", "STATIONS\tquery"};
  const auto press = [](Qt::Key key) {
    WhenOpen<QDialog>([key](QDialog& dialog) {
      auto* list = dialog.findChild<QTreeWidget*>("lstRows");
      EXPECT_EQ(list->topLevelItem(1)->text(1), "query");
      QTest::keyClick(list, Qt::Key_Down);
      QTest::keyClick(list, key);
    });
  };
  press(Qt::Key_Return);
  EXPECT_EQ(ui.PickFromList("Tables", rows), 1U);
  press(Qt::Key_Escape);
  EXPECT_EQ(ui.PickFromList("Tables", rows), std::nullopt);
}

TEST(QtUi, FileDialogMovesToTheFolderOfItsAnswer) {
  TempFolder folder;
  folder.Write("Rivers/UPPER.PRJ", "");
  QtUi ui;
  WhenOpen<QFileDialog>([](QFileDialog& dialog) {
    EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
    EXPECT_TRUE(dialog.directory().exists("UPPER.PRJ")) << "the folder's name in another case";
    QTest::keyClicks(dialog.findChild<QLineEdit*>(), "UPPER.PRJ");
    QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
  });
  EXPECT_THAT(ui.AskFile({.Filter = "Project (*.prj)|*.prj|",
                          .InitialDirectory = folder.Path() + "\\RIVERS\\",
                          .Flags = kFileMustExist}),
              ElementsAre(folder.Path("Rivers/UPPER.PRJ")));
  EXPECT_EQ(std::filesystem::current_path(), folder.Path("Rivers"));
}

TEST(FileDialog, SavesUnderItsExtensionInAnExistingFolderOnly) {
  const TempFolder folder;
  ScriptedUi ui;
  const auto save = [](const QString& name) {
    WhenOpen<QFileDialog>([name](QFileDialog& dialog) {
      auto* field = dialog.findChild<QLineEdit*>();
      field->setText(name);
      QTest::keyClick(field, Qt::Key_Return);
    });
  };
  const FileDialog dialog{.Filter = "Project (*.prj)|*.prj|",
                          .DefaultExtension = "prj",
                          .FileName = "*.prj",
                          .Flags = kPathMustExist,
                          .SaveMode = true};
  save("river");
  EXPECT_THAT(ShowFileDialog(dialog, ui), ElementsAre(folder.Path("river.prj")));
  save("gone/river");
  // The dialog refuses this answer and opens again.
  QTimer::singleShot(200, qApp,
                     [] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->reject(); });
  EXPECT_THAT(ShowFileDialog(dialog, ui), ElementsAre());
  EXPECT_THAT(ui.LastMessage(), testing::HasSubstr("gone/river.prj\r\nPath does not exist."));
}

TEST(QtUi, ResetsNestedPointers) {
  QtUi ui;
  QWidget window;
  window.setCursor(Qt::WaitCursor);
  ui.SetBusyPointer(true);
  ui.SetBusyPointer(true);
  ui.SetBusyPointer(false);
  ASSERT_NE(QApplication::overrideCursor(), nullptr) << "the outer routine is still busy";
  ui.ResetPointers();
  ui.SetBusyPointer(false);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}

TEST(QtShell, TellsAMissingFileFromAMissingFolder) {
  const TempFolder folder;
  QtShell shell;
  EXPECT_EQ(shell.Open(folder.Path("none.pdf")), 2);
  EXPECT_EQ(shell.Open(folder.Path("none/none.pdf")), 3);
  EXPECT_FALSE(shell.OpenText(folder.Path()));
}

TEST(TextProgram, IsTakenFromTheDesktopEntry) {
  struct Case {
    const char* Entry;
    QStringList Command;
  };
  const Case cases[] = {
      {"[Desktop Entry]\nExec=gedit %U\n", {"gedit", "a b.out"}},
      {"[Desktop Entry]\nExec=\"my edit\" --new %i --file %f\n[Desktop Action]\nExec=other\n",
       {"my edit", "--new", "--file", "a b.out"}},
      {"[Desktop Entry]\nExec=plain\n", {"plain", "a b.out"}},
      {"[Desktop Entry]\nTerminal=true\nExec=vim %F\n", {}},
      {"no entry", {}},
  };
  for (const Case& c : cases) EXPECT_EQ(CommandOfEntry(c.Entry, "a b.out"), c.Command) << c.Entry;
}

}  // namespace
}  // namespace lomaris
