#include "connect/MediaFiles.h"

#include "movie/Movie.h"
#include "movie/RecordingStart.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/ParallelWork.h"
#include "platform/Subpaths.h"

#include <QHash>

#include <algorithm>

namespace marquill {

namespace {

const QString rawExtension = u"R3D"_s;

bool isRedProxy(const QString& clipType) {
    return clipType == ClipType::redH || clipType == ClipType::redP || clipType == ClipType::redM;
}

/// The R3D files of proxies. Proxies of one folder share the search.
class RawFiles {
  public:
    /// The path of the first R3D file beside `proxy`, or "".
    QString beside(const QString& proxy) {
        const QString folder = parentFolder(proxy);
        auto known = _byFolder.constFind(folder);
        if (known == _byFolder.cend()) {
            const QStringList names = MediaFiles::namesWithExtension(folder, rawExtension);
            known =
                _byFolder.insert(folder, names.isEmpty() ? QString() : joinPath(folder, names.constFirst()));
        }
        return *known;
    }

  private:
    QHash<QString, QString> _byFolder;
};

std::optional<MediaCandidate> candidate(const QString& path, const QString& datedFile, bool isMovie) {
    const Result<FileAttributes> attributes = FileSystem::current().attributes(datedFile, Links::follow);
    if (!attributes) {
        qCWarning(logConnect).noquote() << attributes.error().description();
        return std::nullopt;
    }
    MediaCandidate candidate{.path = path, .creationDate = attributes->creationDate()};
    // Its length counts only then; most movies need not be opened.
    if (isMovie && wasWrittenAtEnd(*attributes)) {
        if (const Result<Movie> movie = Movie::open(path)) {
            candidate.creationDate = recordingStart(*attributes, movie->seconds());
        }
    }
    return candidate;
}

}  // namespace

QStringList MediaFiles::endingsForClipType(const QString& clipType) {
    static const QHash<QString, QStringList> endings = {
        {ClipType::quickTime, {u".mov"_s, u".MOV"_s}},
        {ClipType::redH, {u"_H.mov"_s}},
        {ClipType::redP, {u"_P.mov"_s}},
        {ClipType::redM, {u"_M.mov"_s}},
        {ClipType::redRaw, {u".R3D"_s}},
    };
    return endings.value(clipType);
}

QString MediaFiles::clipTypeOfMovie(const QString& path) {
    const QString name = lastPathComponent(path);
    for (const QString& clipType : {ClipType::redH, ClipType::redP, ClipType::redM}) {
        if (name.contains(endingsForClipType(clipType).constFirst())) {
            return clipType;
        }
    }
    return ClipType::quickTime;
}

std::optional<QStringList> MediaFiles::filesInFolder(const QString& folder, const QStringList& endings,
                                                     const Progress& progress) {
    if (folder.isEmpty() || endings.isEmpty()) {
        return std::nullopt;
    }
    Result<QStringList> paths = subpathsAtPath(folder, progress);
    if (!paths && paths.error().code != ErrorCode::interrupted) {
        qCWarning(logConnect).noquote() << paths.error().description();
    }
    if (!paths) {
        return std::nullopt;
    }
    paths->removeIf([&](const QString& path) {
        return std::ranges::none_of(endings, [&](const QString& ending) { return path.contains(ending); });
    });
    for (QString& path : *paths) {
        path = joinPath(folder, path);
    }
    return *std::move(paths);
}

std::optional<QString> MediaFiles::findMatchingFileName(const QString& name, const QStringList& listed) {
    const auto found = std::ranges::find_if(
        listed, [&](const QString& entry) { return name.contains(withoutPathExtension(entry)); });
    return found != listed.end() ? std::optional(*found) : std::nullopt;
}

std::optional<QString> MediaFiles::findMatchingFileName(const QString& name, const QString& folder,
                                                        const std::optional<QString>& extension) {
    if (name.isEmpty() || folder.isEmpty()) {
        return std::nullopt;
    }
    if (extension) {
        return findMatchingFileName(name, namesWithExtension(folder, *extension));
    }
    return findMatchingFileName(name, FileSystem::current().list(folder).value_or(QStringList()));
}

QStringList MediaFiles::namesWithExtension(const QString& folder, const QString& extension) {
    QStringList names = FileSystem::current().list(folder).value_or(QStringList());
    names.removeIf([&](const QString& name) { return pathExtension(name) != extension; });
    return names;
}

std::optional<MediaFiles::Candidates> MediaFiles::candidates(const QStringList& files,
                                                             const QString& clipType,
                                                             const Progress& progress) {
    Candidates result;
    QStringList datedFiles = files;
    if (isRedProxy(clipType)) {
        RawFiles rawFiles;
        std::ranges::transform(files, datedFiles.begin(),
                               [&](const QString& proxy) { return rawFiles.beside(proxy); });
        result.lackingR3D = static_cast<int>(datedFiles.count(QString()));
    }
    const bool isMovie = !isRedProxy(clipType) && clipType != ClipType::redRaw;
    std::vector<std::optional<MediaCandidate>> found(static_cast<std::size_t>(files.size()));
    const auto look = [&](qsizetype index) {
        const QString& datedFile = datedFiles.at(index);
        if (!datedFile.isEmpty()) {
            found[static_cast<std::size_t>(index)] = candidate(files.at(index), datedFile, isMovie);
        }
    };
    if (!forEachInParallel(files.size(), look, progress)) {
        return std::nullopt;
    }
    for (std::optional<MediaCandidate>& candidate : found) {
        if (candidate) {
            result.found.push_back(*std::move(candidate));
        }
    }
    return result;
}

}  // namespace marquill
