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
#include <filesystem>

#include <gmock/gmock.h>

#include "core/files.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"
#include "windows/core/file_dialog.h"
#include "windows/core/file_filter.h"
#include "windows/core/message_text.h"
#include "windows/core/qt_settings.h"
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
  const std::string cases[][3] = {
      {"BrowseDir", "HNP", "C:\\Rivers\\Upper; and, \"lower\"\\"},
      {"General", "a/b\\c=d", "=[x]\r\n\t%20 ; \xc3\xbc "},
      {"a/b", "c", "@ByteArray(1)"},
      {"a", "b/c", "under a name that is no level of a tree"},
      {"a%2Fb", "c", ""},
  };
  for (const auto& [section, key, value] : cases) QtSettings().SetValue(section, key, value);
  // From another place, so that it is the file that is read and not what Qt remembers of it.
  const QSettings store(QSettings::IniFormat, QSettings::UserScope, "Lomaris", "Lomaris");
  const TempFolder folder;
  folder.Write("Lomaris/Lomaris.ini", ReadWholeFile(FromQt(store.fileName())));
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, ToQt(folder.Path()));
  for (const auto& [section, key, value] : cases) {
    EXPECT_EQ(QtSettings().Value(section, key, "none"), value);
  }
  EXPECT_EQ(QtSettings().Value("BrowseDir", "QNP", "none"), "none");
}

TEST(MessageText, FitsOnAScreenAndKeepsItsEnd) {
  const QString endless = MessageText(std::string(1'000'000, 'x') + "\r\nInput aborted.");
  EXPECT_LT(endless.size(), 4500);
  EXPECT_TRUE(endless.endsWith("\nInput aborted."));
  EXPECT_EQ(endless.indexOf(QChar(0x200B)), 20) << "may break within the word";
  const QString tall = MessageText("first" + std::string(3000, '\r') + "last");
  EXPECT_EQ(tall.count('\n'), 30);
  EXPECT_TRUE(tall.startsWith("first") && tall.endsWith("last"));
}

TEST(QtUi, BoxesHaveTheirButtonsAndTheirDefault) {
  struct Case {
    Buttons Offered;
    std::optional<Answer> Default;
    int Count;
    Answer OnEnter, OnEscape;
  };
  const Case cases[] = {
      {Buttons::Ok, {}, 1, Answer::Ok, Answer::Ok},
      {Buttons::OkCancel, {}, 2, Answer::Ok, Answer::Cancel},
      {Buttons::YesNoCancel, {}, 3, Answer::Yes, Answer::Cancel},
      {Buttons::YesNo, Answer::No, 2, Answer::No, Answer::No},
      {Buttons::AbortRetryIgnore, Answer::Retry, 3, Answer::Retry, Answer::Abort},
  };
  for (const Case& c : cases) {
    const auto answerTo = [&](Qt::Key key) {
      WhenOpen<QMessageBox>([&, key](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle() + ": " + box.text(), "Lomaris: <b>a</b>");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.buttons().size(), c.Count);
        QTest::keyClick(&box, key);
      });
      return QtUi().ShowMessage(
          {.Text = "<b>a</b>", .BoxButtons = c.Offered, .DefaultAnswer = c.Default});
    };
    EXPECT_EQ(answerTo(Qt::Key_Return), c.OnEnter);
    EXPECT_EQ(answerTo(Qt::Key_Escape), c.OnEscape);
  }
}

TEST(QtUi, InputBoxesAnswerOrAreCancelled) {
  const InputBox box{.Prompt = "<i>Replace</i>", .Proposal = "old\\"};
  WhenOpen<QInputDialog>([](QInputDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QLabel*>()->textFormat(), Qt::PlainText);
    dialog.accept();
  });
  EXPECT_EQ(QtUi().AskText(box), "old\\");
  WhenOpen<QInputDialog>([](QInputDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(QtUi().AskText(box), "");
}

TEST(FileDialog, FindsFilesOfAnyCaseAndWithoutAPoint) {
  EXPECT_EQ(QtFilters("Tables|*.db; *.DBF;*.imp*|All files (*.*)|*.*"),
            QStringList({"Tables (*.db *.DB *.dbf *.DBF *.imp* *.IMP*)", "All files (*.*) (*)"}));
}

void TypeIntoFileDialog(const QString& name) {
  WhenOpen<QFileDialog>([name](QFileDialog& dialog) {
    auto* field = dialog.findChild<QLineEdit*>();
    field->setText(name);
    QTest::keyClick(field, Qt::Key_Return);
  });
}

TEST(FileDialog, MovesToTheFolderOfItsAnswer) {
  const TempFolder folder;
  folder.Write("Rivers/UPPER.PRJ", "");
  TypeIntoFileDialog("UPPER.PRJ");
  EXPECT_THAT(QtUi().AskFile({.Filter = "Project (*.prj)|*.prj|",
                              .InitialDirectory = folder.Path() + "\\RIVERS\\",
                              .Flags = kFileMustExist}),
              ElementsAre(folder.Path("Rivers/UPPER.PRJ")));
  EXPECT_EQ(std::filesystem::current_path(), folder.Path("Rivers"));
}

TEST(FileDialog, SavesUnderItsExtensionInAnExistingFolderOnly) {
  const TempFolder folder;
  ScriptedUi ui;
  const FileDialog dialog{
      .DefaultExtension = "prj", .FileName = "*.prj", .Flags = kPathMustExist, .SaveMode = true};
  TypeIntoFileDialog("river");
  EXPECT_THAT(ShowFileDialog(dialog, ui), ElementsAre(folder.Path("river.prj")));
  TypeIntoFileDialog("gone/river");
  // The dialog refuses this answer and opens again.
  QTimer::singleShot(200, qApp,
                     [] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->reject(); });
  EXPECT_THAT(ShowFileDialog(dialog, ui), ElementsAre());
  EXPECT_THAT(ui.LastMessage(), testing::HasSubstr("gone/river.prj\r\nPath does not exist."));
}

TEST(TextProgram, IsTakenFromTheDesktopEntry) {
  const std::pair<const char*, QStringList> cases[] = {
      {"[Desktop Entry]\nExec=\"my edit\" --new %i --file %f\n[Desktop Action]\nExec=other\n",
       {"my edit", "--new", "--file", "a b.out"}},
      {"[Desktop Entry]\nExec=plain\n", {"plain", "a b.out"}},
      {"[Desktop Entry]\nTerminal=true\nExec=vim %F\n", {}},
  };
  for (const auto& [entry, command] : cases) EXPECT_EQ(CommandOfEntry(entry, "a b.out"), command);
}

}  // namespace
}  // namespace lomaris
