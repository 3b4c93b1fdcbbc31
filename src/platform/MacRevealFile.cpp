// The Finder, by the system's own program for it.
#include "platform/Literals.h"
#include "platform/RevealFile.h"

#include <QProcess>

namespace marquill {

void revealFile(const QString& path, const std::function<void()>& otherwise) {
    if (!QProcess::startDetached(u"/usr/bin/open"_s, {u"-R"_s, path})) {
        otherwise();
    }
}

}  // namespace marquill
