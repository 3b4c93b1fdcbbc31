// The languages that the program speaks: English, which stands in its sources, and the catalogues of
// translations/ that it carries with it, each beside Qt's own. Main thread; needs a QCoreApplication.
#pragma once

#include <QString>
#include <QStringList>

namespace marquill::Translations {

/// The languages that can be chosen, by their ISO 639 codes, English first: "en", "de", "fr".
QStringList languages();

/// Shows texts made from now on in `language`, e.g. "de". An empty one stands for the first of the user's
/// languages (LANGUAGE, LC_ALL, LC_MESSAGES, LANG) that the program speaks. English where it speaks none.
/// Returns the language's code.
QString install(const QString& language = {});

/// While it lives, texts are made in English: for documents that other programs read.
class InEnglish {
  public:
    InEnglish();
    InEnglish(const InEnglish&) = delete;
    InEnglish& operator=(const InEnglish&) = delete;
    ~InEnglish();

  private:
    QString _language;
};

}  // namespace marquill::Translations
