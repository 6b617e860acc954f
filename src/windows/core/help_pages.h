#pragma once

#include <QList>
#include <QString>

namespace lomaris {

/// One page of the help.
struct HelpPage {
  int Topic = 0;  ///< number by which windows ask for it
  QString Path;   ///< of its HTML file
  QString Title;  ///< of the HTML file
  QString Text;   ///< what the page says, without its markup
};

/// The pages of a help folder, in the order of its "topics.txt": a line for each page, its topic
/// number, a blank, its file name. Lines and files that cannot be read are passed over, so the list
/// is empty where there is no help.
QList<HelpPage> LoadHelpPages(const QString& folder);

/// The words of a search, in which blanks separate.
QStringList SearchWords(const QString& search);

/// Whether title or text of a page hold every one of the words, in any case and also inside a word.
bool HoldsAll(const HelpPage& page, const QStringList& words);

}  // namespace lomaris
