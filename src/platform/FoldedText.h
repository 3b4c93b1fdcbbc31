// Texts as they are searched: without regard to case, to accents, and to how a typewriter's marks were made
// prettier. No state, any thread.
#pragma once

#include <QStringView>

#include <string>

namespace marquill {

/// `text` in UTF-8, folded: in lower case ("ß" is "ss"), without the diacritics of Latin, Greek and Cyrillic
/// letters ("é", "ø" and "ł" are "e", "o" and "l"), in the plain form of its characters ("ﬁ" is "fi"), with
/// straight quotes and dashes, and with single spaces for whatever space there is, at its ends none. Control
/// characters are spaces too, so a folded text never holds one. What is folded again stays the same.
std::string foldedText(QStringView text);

}  // namespace marquill
