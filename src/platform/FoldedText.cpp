#include "platform/FoldedText.h"

#include <QString>

#include <algorithm>
#include <array>

namespace marquill {

namespace {

// Up to here each character is folded by itself: Latin, Greek and Cyrillic, with the marks upon them.
constexpr char16_t endOfAlphabets = 0x0530;

// The marks of alphabets that are read without them too; vowel signs of other scripts are letters to search.
bool isDiacritic(char16_t unit) {
    return (unit >= 0x0300 && unit <= 0x036F) || (unit >= 0x1AB0 && unit <= 0x1AFF) ||
           (unit >= 0x1DC0 && unit <= 0x1DFF) || (unit >= 0x20D0 && unit <= 0x20FF) ||
           (unit >= 0xFE20 && unit <= 0xFE2F);
}

struct Plain {
    char16_t character = 0;
    QLatin1StringView text;
};

// What has no decomposition, though it is typed like something plainer. Sorted.
constexpr std::array plainForms = {
    Plain{u'\u00DF', QLatin1StringView("ss")}, Plain{u'\u00E6', QLatin1StringView("ae")},
    Plain{u'\u00F0', QLatin1StringView("d")},  Plain{u'\u00F8', QLatin1StringView("o")},
    Plain{u'\u00FE', QLatin1StringView("th")}, Plain{u'\u0111', QLatin1StringView("d")},
    Plain{u'\u0127', QLatin1StringView("h")},  Plain{u'\u0131', QLatin1StringView("i")},
    Plain{u'\u0142', QLatin1StringView("l")},  Plain{u'\u0153', QLatin1StringView("oe")},
    Plain{u'\u0167', QLatin1StringView("t")},  Plain{u'\u2010', QLatin1StringView("-")},
    Plain{u'\u2011', QLatin1StringView("-")},  Plain{u'\u2012', QLatin1StringView("-")},
    Plain{u'\u2013', QLatin1StringView("-")},  Plain{u'\u2014', QLatin1StringView("-")},
    Plain{u'\u2018', QLatin1StringView("'")},  Plain{u'\u2019', QLatin1StringView("'")},
    Plain{u'\u201C', QLatin1StringView("\"")}, Plain{u'\u201D', QLatin1StringView("\"")},
    Plain{u'\u201E', QLatin1StringView("\"")}, Plain{u'\u2212', QLatin1StringView("-")},
};

// An empty view: the character is plain already.
QLatin1StringView plainForm(char16_t unit) {
    const auto found = std::ranges::lower_bound(plainForms, unit, {}, &Plain::character);
    return found != plainForms.end() && found->character == unit ? found->text : QLatin1StringView();
}

bool isSpace(QChar c) {
    return c.isSpace() || c.category() == QChar::Other_Control;
}

// In lower case, without marks; spaces and the rest as they are.
QString plainLetters(QStringView text) {
    const QString letters = text.toString().normalized(QString::NormalizationForm_KD).toCaseFolded();
    QString plain;
    plain.reserve(letters.size());
    for (const QChar c : letters) {
        if (const QLatin1StringView form = plainForm(c.unicode()); !form.isEmpty()) {
            plain += form;
        } else if (!isDiacritic(c.unicode()) && c.category() != QChar::Other_Format) {
            plain += c;
        }
    }
    return plain;
}

// `bytes` with single spaces, and none at its ends. Control characters and spaces of one byte only.
std::string withSingleSpaces(std::string bytes) {
    std::size_t kept = 0;
    for (const char byte : bytes) {
        const bool isBlank = (byte >= 0 && byte <= ' ') || byte == '\x7F';
        if (!isBlank) {
            bytes[kept++] = byte;
        } else if (kept > 0 && bytes[kept - 1] != ' ') {
            bytes[kept++] = ' ';
        }
    }
    if (kept > 0 && bytes[kept - 1] == ' ') {
        --kept;
    }
    bytes.resize(kept);
    return bytes;
}

std::string foldedLetters(QStringView text) {
    QString plain = plainLetters(text);
    std::ranges::replace_if(plain, isSpace, QChar(u' '));
    return plain.toStdString();
}

// What each character of the alphabets is folded to, worked out once.
const std::string& foldedLetter(char16_t unit) {
    static const auto letters = [] {
        std::array<std::string, endOfAlphabets> folded;
        for (char16_t letter = 0; letter < endOfAlphabets; ++letter) {
            folded.at(letter) = foldedLetters(QStringView(&letter, 1));
        }
        return folded;
    }();
    return letters.at(unit);
}

}  // namespace

std::string foldedText(QStringView text) {
    const auto isOfAlphabets = [](QChar c) { return c.unicode() < endOfAlphabets; };
    if (!std::ranges::all_of(text, isOfAlphabets)) {
        return withSingleSpaces(foldedLetters(text));
    }
    std::string folded;
    folded.reserve(static_cast<std::size_t>(text.size()) + 2);
    for (const QChar c : text) {
        folded += foldedLetter(c.unicode());
    }
    return withSingleSpaces(std::move(folded));
}

}  // namespace marquill
