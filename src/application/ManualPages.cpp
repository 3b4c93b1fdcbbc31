#include "application/ManualPages.h"

#include "platform/Files.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>

namespace marquill {

namespace {

constexpr auto firstPage = "README.md"_L1;

// Beside an installed program, in a Mac application, and in the folder that ./run builds in.
QStringList placesOfManual(const QString& programFolder) {
    QStringList places;
    for (const auto* place : {"../share/doc/marquill/manual", "../Resources/manual", "../../docs/manual"}) {
        places.append(QDir::cleanPath(programFolder + u'/' + QLatin1StringView(place)));
    }
    return places;
}

QString titleOf(const QString& markdown) {
    static const QRegularExpression heading(u"^# (.+)$"_s, QRegularExpression::MultilineOption);
    return heading.match(markdown).captured(1);
}

}  // namespace

Result<QString> manualFolder(const QString& programFolder) {
    const QStringList places = placesOfManual(programFolder);
    for (const QString& place : places) {
        if (fileExists(joinPath(place, firstPage))) {
            return place;
        }
    }
    return failure(ErrorCode::notFound,
                   QCoreApplication::translate("ManualPages",
                                               "The manual was not installed with the program. It was looked "
                                               "for in:\n%1")
                       .arg(places.join(u'\n')));
}

Result<std::vector<ManualPage>> manualPages(const QString& folder) {
    const QString path = joinPath(folder, firstPage);
    const Result<QByteArray> bytes = readFile(path);
    if (!bytes) {
        return std::unexpected(bytes.error());
    }
    const QString markdown = QString::fromUtf8(*bytes);
    std::vector<ManualPage> pages{{titleOf(markdown), path}};
    static const QRegularExpression row(u"^\\| \\[([^\\]]+)\\]\\(([^)#]+\\.md)\\)"_s,
                                        QRegularExpression::MultilineOption);
    for (const QRegularExpressionMatch& match : row.globalMatch(markdown)) {
        const QString page = QDir::cleanPath(joinPath(folder, match.captured(2)));
        if (fileExists(page)) {
            pages.push_back({match.captured(1), page});
        }
    }
    return pages;
}

Result<std::vector<ManualPage>> installedManual(const QString& programFolder) {
    const Result<QString> folder = manualFolder(programFolder);
    return folder ? manualPages(*folder) : std::unexpected(folder.error());
}

QString anchorOfHeading(const QString& heading) {
    static const QRegularExpression punctuation(u"[^\\w\\- ]"_s,
                                                QRegularExpression::UseUnicodePropertiesOption);
    return heading.toLower().remove(punctuation).replace(u' ', u'-');
}

}  // namespace marquill
