#include "platform/Translations.h"

#include "platform/Literals.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <array>

namespace marquill::Translations {

namespace {

const QString folder = u":/translations"_s;
const QString english = u"en"_s;

struct Installed {
    QString language = english;
    std::array<QTranslator, 2> catalogues;  // Qt's own below ours
};

Installed& installed() {
    static Installed installed;
    return installed;
}

QString codeOf(const QString& language) {
    return language.section(u'-', 0, 0).section(u'_', 0, 0).toLower();
}

// Whether the environment asks for no language at all; what LANGUAGE then names does not count.
bool wantsNone() {
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QString locale = qEnvironmentVariable(variable).section(u'.', 0, 0);
        if (!locale.isEmpty()) {
            return locale == "C"_L1 || locale == "POSIX"_L1;
        }
    }
    return false;
}

QStringList languagesOfUser() {
    return wantsNone() ? QStringList() : QLocale::system().uiLanguages();
}

QString languageFor(const QStringList& wanted) {
    const QStringList spoken = languages();
    for (const QString& language : wanted) {
        if (spoken.contains(codeOf(language))) {
            return codeOf(language);
        }
    }
    return english;
}

// Our own copy of Qt's catalogue, or the one that stands beside Qt.
bool loadToolkit(QTranslator& catalogue, const QString& language) {
    const QString name = u"qtbase_"_s + language;
    return catalogue.load(name, folder) ||
           catalogue.load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
}

}  // namespace

QStringList languages() {
    QStringList languages{english};
    const QString prefix = u"marquill_"_s;
    for (const QString& file : QDir(folder).entryList({prefix + u"*.qm"_s}, QDir::Files, QDir::Name)) {
        languages.append(file.mid(prefix.size()).section(u'.', 0, 0));
    }
    return languages;
}

QString install(const QString& language) {
    Installed& shown = installed();
    for (QTranslator& catalogue : shown.catalogues) {
        QCoreApplication::removeTranslator(&catalogue);
    }
    shown.language = languageFor(language.isEmpty() ? languagesOfUser() : QStringList{language});
    if (shown.language == english) {
        return shown.language;
    }
    auto& [toolkit, ours] = shown.catalogues;
    if (loadToolkit(toolkit, shown.language)) {
        QCoreApplication::installTranslator(&toolkit);
    }
    if (ours.load(u"marquill_"_s + shown.language, folder)) {
        QCoreApplication::installTranslator(&ours);
    }
    return shown.language;
}

InEnglish::InEnglish() : _language(installed().language) {
    install(english);
}

InEnglish::~InEnglish() {
    install(_language);
}

}  // namespace marquill::Translations
