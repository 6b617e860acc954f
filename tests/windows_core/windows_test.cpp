#include <QApplication>
#include <QImage>
#include <QListWidget>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>

#include <gmock/gmock.h>

#include "support/scripted_ui.h"
#include "support/temp_folder.h"
#include "windows/core/browse_for_file.h"
#include "windows/core/frm_help.h"
#include "windows/core/menu_status.h"
#include "windows/core/qt_text.h"
#include "windows/core/themed_icon.h"
#include "windows/core/validated_field.h"
#include "windows/core/whats_this.h"

namespace lomaris {
namespace {

/// The most frequent brightness, 0 to 255, of what a picture covers for the most part.
int MainBrightness(const QImage& picture) {
  std::array<int, 256> counts{};
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QColor pixel = picture.pixelColor(x, y);
      if (pixel.alpha() > 200 && pixel.hsvSaturation() < 40) {
        ++counts[static_cast<std::size_t>(pixel.value())];
      }
    }
  }
  return static_cast<int>(std::ranges::max_element(counts) - counts.begin());
}

TEST(ThemedIcon, FollowsThePalette) {
  const QPalette before = QApplication::palette();
  const char* const names[] = {"new",         "open",          "close", "save",  "cut",
                               "copy",        "paste",         "help",  "edit",  "select",
                               "create",      "remove",        "korb",  "list",  "details",
                               "whats_this",  "large_icons",   "run_h", "run_q", "build_aux",
                               "small_icons", "post_processor"};
  for (const QColor& text : {QColor(0, 0, 0), QColor(240, 240, 240)}) {
    QPalette palette = before;
    palette.setColor(QPalette::WindowText, text);
    QApplication::setPalette(palette);
    for (const char* name : names) {
      EXPECT_EQ(MainBrightness(ThemedIcon(name).pixmap(48).toImage()), text.value()) << name;
    }
  }
  QApplication::setPalette(before);
  for (const char* name : {"run", "lomaris", "wallpaper", "back", "forward", "home"}) {
    EXPECT_FALSE(ThemedIcon(name).isNull()) << name;
  }
  EXPECT_TRUE(ThemedIcon("none").isNull());
}

class HelpWindow : public testing::Test {
 protected:
  HelpWindow() {
    folder.Write("topics.txt", "1 index.html\r\n7 flow.html\n8 gone.html\nrubbish\n9 heat.html");
    folder.Write("index.html", "<title>Contents</title><a href='flow.html'>Flow</a>");
    folder.Write("flow.html",
                 "<title>Flow</title><p>The <b>backup</b> of a file, a file &amp; more");
    folder.Write("heat.html", "<title>Heat</title><p>file</p><!-- backup -->");
  }

  std::string Listed(frmHelp& help) const {
    std::string titles;
    auto* list = help.findChild<QListWidget*>("lstPages");
    for (int row = 0; row < list->count(); ++row) {
      titles += FromQt(list->item(row)->text()) + (row == list->currentRow() ? "* " : " ");
    }
    return titles;
  }

  TempFolder folder;
  FakeSettings settings;
};

TEST_F(HelpWindow, FindsPagesThatHoldAllWordsAndMarksThem) {
  frmHelp help(ToQt(folder.Path()), settings);
  help.setAttribute(Qt::WA_DeleteOnClose, false);
  auto* page = help.findChild<QTextBrowser*>("txtPage");
  auto* search = help.findChild<QLineEdit*>("txtSearch");
  help.ShowTopic(1);
  EXPECT_EQ(Listed(help), "Contents* Flow Heat ");
  QTest::keyClicks(search, "FILE  backup");
  EXPECT_EQ(Listed(help), "Flow ");
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_EQ(Listed(help), "Flow* ");
  EXPECT_EQ(page->extraSelections().size(), 3);
  help.findChild<QToolButton*>("btnBack")->click();
  EXPECT_EQ(page->documentTitle(), "Contents");
  search->clear();
  EXPECT_EQ(Listed(help), "Contents* Flow Heat ");
  EXPECT_TRUE(page->extraSelections().isEmpty());
  help.ShowTopic(9);
  EXPECT_EQ(page->documentTitle(), "Heat");
  help.ShowTopic(8);
  EXPECT_EQ(page->documentTitle(), "Contents") << "a page that is not there";
  help.resize(700, 500);
  help.close();
  EXPECT_EQ((settings.Values[{"frmHelp", "W"}]), "10500");
}

TEST_F(HelpWindow, SaysThatThereAreNoPages) {
  frmHelp help(ToQt(folder.Path("gone")), settings);
  help.ShowTopic(1);
  EXPECT_EQ(help.findChild<QTextBrowser*>("txtPage")->toPlainText(),
            "The help pages are not beside the program.");
}

TEST(WhatsThis, ReachesControlsWithAnIndexAndMenuEntries) {
  const TempFolder folder;
  SetHelpFile(ToQt(folder.Write("Lomaris.hlp",
                                "; comment\r\n[frmAny]\r\nbtnEdit = Edits = it.\r\nno sense\r\n"
                                "btnEdit2 = Its own\xfc.\r\nmnuOpen=Opens.\r\n"
                                "[frmOther]\r\ntxt = Elsewhere.\r\n")));
  QWidget window;
  window.setObjectName("frmAny");
  QWidget first(&window), second(&window), other(&window);
  QAction entry(&window);
  first.setObjectName("btnEdit1");
  second.setObjectName("btnEdit2");
  second.setAccessibleDescription("Kept");
  other.setObjectName("txt");
  entry.setObjectName("mnuOpen");
  ApplyWhatsThis(window);
  SetHelpFile({});
  EXPECT_EQ(first.whatsThis(), "Edits = it.");
  EXPECT_EQ(first.accessibleDescription(), "Edits = it.");
  EXPECT_EQ(FromQt(second.whatsThis()), "Its own\xc3\xbc.");
  EXPECT_EQ(second.accessibleDescription(), "Kept");
  EXPECT_EQ(other.whatsThis(), "");
  EXPECT_EQ(entry.whatsThis(), "Opens.");
}

TEST(MenuStatus, SaysWhatTheHighlightedEntryDoes) {
  QMainWindow window;
  QMenu* file = window.menuBar()->addMenu("&File");
  QMenu* create = file->addMenu("C&reate Input File");
  create->addAction("&Heat Loads...");
  file->addAction("&New...\tCtrl+N");
  SubscribeMenuStatus(window);
  file->addAction("&1 C:\\rivers\\upper.prj");
  file->addAction("&Unknown");
  window.show();
  window.menuBar()->setActiveAction(file->menuAction());
  std::vector<std::string> shown{FromQt(window.statusBar()->currentMessage())};
  const auto press = [&](Qt::Key key) {
    QTest::keyClick(QApplication::activePopupWidget(), key);
    shown.push_back(FromQt(window.statusBar()->currentMessage()));
  };
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Left, Qt::Key_Down, Qt::Key_Down,
                            Qt::Key_Down, Qt::Key_Up}) {
    press(key);
  }
  file->close();
  shown.push_back(FromQt(window.statusBar()->currentMessage()));
  EXPECT_THAT(shown,
              testing::ElementsAre("Create, open, save, and print this file",
                                   "Create a new, empty input file and open editor",
                                   "Create a new, empty Heat Load (POW) file and open editor", "",
                                   "Create a new project using wizard",
                                   "Open this previously saved Project file", "",
                                   "Open this previously saved Project file", ""));
}

TEST(BrowseForFile, ReplacesTheSelectedItemOfAList) {
  ScriptedUi ui;
  FakeSettings settings;
  QComboBox list;
  list.addItems({"a.met", "b.met", "c.met"});
  list.setCurrentIndex(1);
  ui.Files = {{"/rivers/new.met"}, {}};
  BrowseForFile("Meteorological (*.met)|*.met|", list, ui, settings);
  BrowseForFile("Meteorological (*.met)|*.met|", list, ui, settings);
  EXPECT_EQ(list.count(), 3);
  EXPECT_EQ(list.currentIndex(), 1);
  EXPECT_EQ(list.currentText(), "/rivers/new.met");

  QComboBox free;
  free.setEditable(true);
  free.addItems({"a.met"});
  QLineEdit field("kept.met");
  ui.Files = {{"x.met"}, {}};
  BrowseForFile("", free, ui, settings);
  BrowseForFile("", field, ui, settings);
  EXPECT_EQ(free.currentText(), "x.met");
  EXPECT_EQ(free.itemText(0), "a.met");
  EXPECT_EQ(field.text(), "kept.met");
}

TEST(Validated, RewritesTheFieldOrKeepsTheFocusInIt) {
  ScriptedUi ui;
  QWidget window;
  QLineEdit field("1/2/2031 ", &window), other(&window);
  window.show();
  other.setFocus();
  EXPECT_TRUE(Validated(field, FieldKind::Date, ui));
  EXPECT_EQ(field.text(), "01/02/31");
  EXPECT_EQ(window.focusWidget(), &other);
  field.setText("soon");
  EXPECT_FALSE(Validated(field, FieldKind::Date, ui));
  EXPECT_EQ(field.text(), "soon");
  EXPECT_EQ(window.focusWidget(), &field);
  EXPECT_EQ(ui.Beeps, 1);
}

}  // namespace
}  // namespace lomaris
