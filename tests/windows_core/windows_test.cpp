#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QStatusBar>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>

#include <gmock/gmock.h>

#include "core/files.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"
#include "windows/core/file_filter.h"
#include "windows/core/frm_help.h"
#include "windows/core/menu_status.h"
#include "windows/core/qt_settings.h"
#include "windows/core/qt_text.h"
#include "windows/core/qt_ui.h"
#include "windows/core/themed_icon.h"

namespace lomaris {
namespace {

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
  const std::string text = "<b>" + std::string(1'000'000, 'x') + "\r\nInput aborted.";
  for (const Case& c : cases) {
    const auto answerTo = [&](Qt::Key key) {
      WhenOpen<QMessageBox>([&, key](QMessageBox& box) {
        EXPECT_LT(box.text().size(), 4500) << "fits on a screen";
        EXPECT_TRUE(box.text().startsWith("<b>") && box.text().endsWith("\nInput aborted."));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.buttons().size(), c.Count);
        QTest::keyClick(&box, key);
      });
      return QtUi().ShowMessage(
          {.Text = text, .BoxButtons = c.Offered, .DefaultAnswer = c.Default});
    };
    EXPECT_EQ(answerTo(Qt::Key_Return), c.OnEnter);
    EXPECT_EQ(answerTo(Qt::Key_Escape), c.OnEscape);
  }
}

TEST(FileDialog, FindsFilesOfAnyCaseAndWithoutAPoint) {
  EXPECT_EQ(QtFilters("Tables|*.db; *.DBF;*.imp*|All files (*.*)|*.*"),
            QStringList({"Tables (*.db *.DB *.dbf *.DBF *.imp* *.IMP*)", "All files (*.*) (*)"}));
}

TEST(FileDialog, MovesToTheFolderOfItsAnswer) {
  const TempFolder folder;
  folder.Write("Rivers/UPPER.PRJ", "");
  const auto answerTo = [](const FileDialog& dialog, const char* name) {
    WhenOpen<QFileDialog>([name](QFileDialog& window) {
      QTest::keyClicks(window.findChild<QLineEdit*>(), name);
      QTest::keyClick(window.findChild<QLineEdit*>(), Qt::Key_Return);
    });
    return QtUi().AskFile(dialog);
  };
  const FileDialog open{.InitialDirectory = folder.Path("\\RIVERS\\"), .Flags = kFileMustExist};
  EXPECT_THAT(answerTo(open, "UPPER.PRJ"), testing::ElementsAre(folder.Path("Rivers/UPPER.PRJ")));
  EXPECT_EQ(FromQt(QDir::currentPath()), folder.Path("Rivers"));
  const FileDialog save{.DefaultExtension = "prj", .SaveMode = true};
  EXPECT_THAT(answerTo(save, "lower"), testing::ElementsAre(folder.Path("Rivers/lower.prj")));
}

void SetColour(QPalette::ColorRole role, const QColor& colour) {
  QPalette palette = QApplication::palette();
  palette.setColor(role, colour);
  QApplication::setPalette(palette);
  QApplication::processEvents();  // tells the open windows
}

/// True when most of the grey in a picture is of this brightness.
bool IsDrawnIn(const QColor& colour, const QImage& picture) {
  int matching = 0, others = 0;
  for (int place = 0; place < picture.width() * picture.height(); ++place) {
    const QColor pixel = picture.pixelColor(place % picture.width(), place / picture.width());
    if (pixel.alpha() <= 200 || pixel.hsvSaturation() >= 40) continue;
    ++(pixel.value() == colour.value() ? matching : others);
  }
  return matching > others;
}

TEST(ThemedIcon, FollowsThePalette) {
  const QString names =
      "new open close save cut copy paste help edit select create remove korb list details "
      "whats_this large_icons small_icons run_h run_q build_aux post_processor";
  for (const QColor& text : {QColor(240, 240, 240), QColor(0, 0, 0)}) {
    SetColour(QPalette::WindowText, text);
    for (const QString& name : names.split(' ')) {
      EXPECT_TRUE(IsDrawnIn(text, ThemedIcon(name).pixmap(48).toImage())) << FromQt(name);
    }
  }
}

TEST(HelpWindow, FindsPagesThatHoldAllWordsAndMarksThem) {
  const TempFolder folder;
  folder.Write("topics.txt", "1 index.html\r\n7 flow.html\n8 gone.html\nrubbish\n9 heat.html");
  folder.Write("index.html", "<title>Contents</title><a href='flow.html'>Flow</a>");
  folder.Write("flow.html", "<title>Flow</title>The <b>backup</b> of a file, a file &amp; more");
  folder.Write("heat.html", "<title>Heat</title>file<!-- backup -->");
  FakeSettings settings;
  frmHelp help(ToQt(folder.Path()), settings);
  auto* page = help.findChild<QTextBrowser*>("txtPage");
  auto* search = help.findChild<QLineEdit*>("txtSearch");
  const auto listed = [list = help.findChild<QListWidget*>("lstPages")] {
    QStringList titles;
    for (int row = 0; row < list->count(); ++row) {
      titles << list->item(row)->text() + (row == list->currentRow() ? "*" : "");
    }
    return FromQt(titles.join(' '));
  };
  help.ShowTopic(8);
  EXPECT_EQ(listed(), "Contents* Flow Heat") << "the page asked for is not there";
  help.show();
  SetColour(QPalette::Link, Qt::red);
  EXPECT_THAT(FromQt(page->toHtml()), testing::HasSubstr("color:#ff0000"));
  QTest::keyClicks(search, "FILE  backup");
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_EQ(listed(), "Flow*");
  EXPECT_EQ(page->extraSelections().size(), 3);
  search->clear();
  EXPECT_TRUE(page->extraSelections().isEmpty());
  help.findChild<QToolButton*>("btnBack")->click();
  EXPECT_EQ(listed(), "Contents* Flow Heat");
  help.ShowTopic(9);
  EXPECT_EQ(listed(), "Contents Flow Heat*");
}

TEST(MenuStatus, SaysWhatTheHighlightedEntryDoes) {
  QMainWindow window;
  QMenu* file = window.menuBar()->addMenu("&File");
  file->addMenu("C&reate Input File")->addAction("&Heat Loads...");
  SubscribeMenuStatus(window);
  file->addAction("&New...\tCtrl+N");
  file->addAction("&1 C:\\rivers\\upper.prj");
  window.show();
  window.menuBar()->setActiveAction(file->menuAction());
  const std::pair<Qt::Key, const char*> steps[] = {
      {Qt::Key_Down, "Create a new, empty input file and open editor"},
      {Qt::Key_Right, "Create a new, empty Heat Load (POW) file and open editor"},
      {Qt::Key_Left, ""},
      {Qt::Key_Down, "Create a new project using wizard"},
      {Qt::Key_Down, "Open this previously saved Project file"},
  };
  for (const auto& [key, text] : steps) {
    QTest::keyClick(QApplication::activePopupWidget(), key);
    EXPECT_EQ(FromQt(window.statusBar()->currentMessage()), text);
  }
}

}  // namespace
}  // namespace lomaris
