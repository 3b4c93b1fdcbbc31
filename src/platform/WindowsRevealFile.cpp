// The Explorer. It reads its command line in a way of its own: the quotes are part of what it is told.
#include "platform/Literals.h"
#include "platform/RevealFile.h"

#include <QDir>
#include <QProcess>

namespace marquill {

void revealFile(const QString& path, const std::function<void()>& otherwise) {
    QProcess explorer;
    explorer.setProgram(u"explorer.exe"_s);
    explorer.setNativeArguments(u"/select,\"%1\""_s.arg(QDir::toNativeSeparators(path)));
    if (!explorer.startDetached()) {
        otherwise();
    }
}

}  // namespace marquill
