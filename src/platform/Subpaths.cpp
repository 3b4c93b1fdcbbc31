#include "platform/Subpaths.h"

#include "platform/Files.h"
#include "platform/Log.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>
#include <ranges>

namespace marquill {

namespace {

class Walk {
  public:
    Walk(const QString& root, const Progress& progress) : _root(root), _progress(progress) {}

    Result<QStringList> run() {
        if (Result<void> listed = open({}); !listed) {
            return std::unexpected(listed.error());
        }
        while (!_pending.empty()) {
            if (!goesOn(_progress, _paths.size(), 0)) {
                return failure(ErrorCode::interrupted,
                               QCoreApplication::translate("Subpaths", "The search was cancelled."), _root);
            }
            takeNext();
        }
        return std::move(_paths);
    }

  private:
    /// Puts what the folder holds before all that is pending.
    Result<void> open(const QString& folder) {
        Result<std::vector<FolderEntry>> entries =
            FileSystem::current().entries(folder.isEmpty() ? _root : joinPath(_root, folder));
        if (!entries) {
            return std::unexpected(std::move(entries.error()));
        }
        for (FolderEntry& entry : *entries) {
            if (!folder.isEmpty()) {
                entry.name = joinPath(folder, entry.name);
            }
        }
        std::ranges::move(std::views::reverse(*entries), std::back_inserter(_pending));
        return {};
    }

    void takeNext() {
        const FolderEntry entry = std::move(_pending.back());
        _pending.pop_back();
        _paths.append(entry.name);
        if (entry.type != FileType::folder) {
            return;
        }
        if (const Result<void> opened = open(entry.name); !opened) {
            qCWarning(logPlatform).noquote() << opened.error().description();
        }
    }

    const QString& _root;
    const Progress& _progress;
    QStringList _paths;
    std::vector<FolderEntry> _pending;  // their paths; the next one last
};

}  // namespace

Result<QStringList> subpathsAtPath(const QString& folder, const Progress& progress) {
    return Walk(folder, progress).run();
}

}  // namespace marquill
