// The pages of the manual: where they are, and what the first of them lists. Any thread.
#pragma once

#include "platform/Error.h"

#include <QString>

#include <vector>

namespace marquill {

struct ManualPage {
    QString title;
    QString path;  ///< full path of the Markdown file

    bool operator==(const ManualPage&) const = default;
};

/// The folder of the manual: the one that was installed with the program, or that of the sources it was built
/// from. The error names the places it was looked for.
Result<QString> manualFolder(const QString& programFolder);

/// The first page, README.md, and those that it links to in its table of pages, in their order; pages that
/// are not there are left out.
Result<std::vector<ManualPage>> manualPages(const QString& folder);

/// The pages of manualFolder().
Result<std::vector<ManualPage>> installedManual(const QString& programFolder);

/// What a link's part behind "#" is for a heading: lower case, without punctuation, with hyphens for spaces.
QString anchorOfHeading(const QString& heading);

}  // namespace marquill
