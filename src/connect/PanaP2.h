// The descriptions of the clips on a P2 card: XML files below the card's folder CONTENTS/CLIP. No state, any
// thread; failures are logged.
#pragma once

#include "platform/Date.h"
#include "platform/Progress.h"

#include <QString>

#include <optional>
#include <vector>

namespace marquill {

/// One clip of a card.
struct P2Clip {
    QString p2_fileName;   ///< of its description, without extension and folder: "0001AB"
    Date p2_creationDate;  ///< see p2Date

    bool operator==(const P2Clip&) const = default;
};

class PanaP2 {
  public:
    /// The clips that the files below `folder` with the extension "XML", upper case, describe, in the order
    /// of the listing. Files that cannot be read are left out, all of them once `progress` ends the work.
    static std::vector<P2Clip> getP2XMLClipsAtPath(const QString& folder, const Progress& progress = {});

    /// What the file at `path` describes: its last element CreationDate counts, in whatever namespace. None
    /// when it is no XML, has no such element, or holds a date there that cannot be read.
    static std::optional<P2Clip> xmlClipFromFile(const QString& path);
};

}  // namespace marquill
