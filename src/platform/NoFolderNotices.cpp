// Where no way is known to be told of every change in a folder, its owner looks now and then.
#include "platform/FolderNotices.h"

namespace marquill {

std::unique_ptr<FolderNotices> FolderNotices::watch(const QString& /*path*/) {
    return nullptr;
}

}  // namespace marquill
