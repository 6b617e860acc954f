#include <QApplication>
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

void SetColour(QPalette::ColorRole role, const QColor& colour) {
  QPalette palette = QApplication::palette();
  palette.setColor(role, colour);
  QApplication::setPalette(palette);
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
  for (const QColor& text : {QColor(240, 240, 240), QColor(0, 0, 0)}) {
    SetColour(QPalette::WindowText, text);
    for (const char* name :
         {"new",   "open",      "close",       "save",          "cut",         "copy",
          "paste", "help",      "edit",        "select",        "create",      "remove",
          "korb",  "list",      "details",     "whats_this",    "large_icons", "run_h",
          "run_q", "build_aux", "small_icons", "post_processor"}) {
      EXPECT_TRUE(IsDrawnIn(text, ThemedIcon(name).pixmap(48).toImage())) << name;
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
  help.setAttribute(Qt::WA_DeleteOnClose, false);
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
  SetColour(QPalette::Link, Qt::red);
  EXPECT_THAT(FromQt(page->toHtml()), testing::HasSubstr("color:#ff0000"));
  QTest::keyClicks(search, "FILE  backup");
  EXPECT_EQ(listed(), "Flow");
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_EQ(listed(), "Flow*");
  EXPECT_EQ(page->extraSelections().size(), 3);
  help.findChild<QToolButton*>("btnBack")->click();
  EXPECT_EQ(page->documentTitle(), "Contents");
  search->clear();
  EXPECT_TRUE(page->extraSelections().isEmpty());
  help.ShowTopic(9);
  EXPECT_EQ(listed(), "Contents Flow Heat*");
  help.resize(700, 500);
  help.close();
  EXPECT_EQ((settings.Values[{"frmHelp", "W"}]), "10500");

  frmHelp without(ToQt(folder.Path("gone")), settings);
  without.ShowTopic(1);
  EXPECT_EQ(without.findChild<QTextBrowser*>("txtPage")->toPlainText(),
            "The help pages are not beside the program.");
}

TEST(WhatsThis, ReachesControlsWithAnIndexAndMenuEntries) {
  const TempFolder folder;
  SetHelpFile(ToQt(folder.Write("Lomaris.hlp",
                                "; comment\r\n[frmAny]\r\nbtnEdit = Edits = it.\r\nno sense\r\n"
                                "btnEdit2 = Its own\xfc.\r\nmnuOpen=Opens.\r\n"
                                "[frmOther]\r\ntxt = Elsewhere.\r\n")));
  QWidget window, first(&window), second(&window), other(&window);
  QAction entry(&window);
  window.setObjectName("frmAny");
  first.setObjectName("btnEdit1");
  second.setObjectName("btnEdit2");
  other.setObjectName("txt");
  entry.setObjectName("mnuOpen");
  ApplyWhatsThis(window);
  SetHelpFile({});
  EXPECT_EQ(first.whatsThis() + first.accessibleDescription(), "Edits = it.Edits = it.");
  EXPECT_EQ(FromQt(second.whatsThis()), "Its own\xc3\xbc.");
  EXPECT_EQ(other.whatsThis(), "");
  EXPECT_EQ(entry.whatsThis(), "Opens.");
}

TEST(MenuStatus, SaysWhatTheHighlightedEntryDoes) {
  QMainWindow window;
  QMenu* file = window.menuBar()->addMenu("&File");
  file->addMenu("C&reate Input File")->addAction("&Heat Loads...");
  SubscribeMenuStatus(window);
  file->addAction("&New...\tCtrl+N");
  file->addAction("&1 C:\\rivers\\upper.prj");
  file->addAction("&Unknown");
  window.show();
  window.menuBar()->setActiveAction(file->menuAction());
  std::vector<std::string> shown;
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Left, Qt::Key_Down, Qt::Key_Down,
                            Qt::Key_Down, Qt::Key_Escape}) {
    shown.push_back(FromQt(window.statusBar()->currentMessage()));
    QTest::keyClick(QApplication::activePopupWidget(), key);
  }
  EXPECT_THAT(shown,
              testing::ElementsAre("Create, open, save, and print this file",
                                   "Create a new, empty input file and open editor",
                                   "Create a new, empty Heat Load (POW) file and open editor", "",
                                   "Create a new project using wizard",
                                   "Open this previously saved Project file", ""));
}

TEST(BrowseForFile, ReplacesTheSelectedItemOfAList) {
  ScriptedUi ui;
  FakeSettings settings;
  QComboBox list;
  list.addItems({"a.met", "b.met", "c.met"});
  list.setCurrentIndex(1);
  ui.Files = {{"/rivers/new.met"}, {}};
  BrowseForFile("", list, ui, settings);
  BrowseForFile("", list, ui, settings);
  EXPECT_EQ(list.count(), 3);
  EXPECT_EQ(list.currentIndex(), 1);
  EXPECT_EQ(list.currentText(), "/rivers/new.met");
}

TEST(Validated, RewritesTheFieldOrKeepsTheFocusInIt) {
  ScriptedUi ui;
  QWidget window;
  QLineEdit field("1/2/2031 ", &window), other(&window);
  other.setFocus();
  EXPECT_TRUE(Validated(field, FieldKind::Date, ui));
  EXPECT_EQ(field.text(), "01/02/31");
  EXPECT_EQ(window.focusWidget(), &other);
  field.setText("soon");
  EXPECT_FALSE(Validated(field, FieldKind::Date, ui));
  EXPECT_EQ(field.text(), "soon");
  EXPECT_EQ(window.focusWidget(), &field);
}

}  // namespace
}  // namespace lomaris
