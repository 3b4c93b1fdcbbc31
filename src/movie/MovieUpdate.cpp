#include "movie/MovieUpdate.h"

#include "movie/CompressedHeader.h"
#include "movie/MovieReader.h"
#include "movie/UpdatePlan.h"

#include <QCoreApplication>

#include <algorithm>

namespace marquill {

namespace {

constexpr FourCharCode movieType("moov");
constexpr FourCharCode freeType("free");

/// One update of one file.
class MovieUpdate {
  public:
    MovieUpdate(const Movie& movie, OpenFile& file)
        : _movie(movie), _file(file), _source(file, movie.identity().size) {}

    Result<void> run(const UserData& userData);

  private:
    Result<void> checkUnchanged();
    Result<FileLayout> readLayout();
    Result<void> noteAtom(FileLayout& layout, const AtomHeader& atom);
    Result<AtomList> headerAtoms(const AtomHeader& moov);
    Result<QByteArray> headerBody(const AtomHeader& moov);
    Result<void> checkSecond(const FileLayout& layout, const AtomList& atoms);
    Result<void> carryOut(const UpdatePlan& plan);

    const Movie& _movie;
    OpenFile& _file;
    ByteSource _source;
};

/// The padding that an update leaves at the end of a header, and that the next one does not need.
void removePadding(AtomList& list) {
    while (!list.atoms.empty() && list.atoms.back().type == freeType) {
        list.atoms.pop_back();
    }
}

QByteArray bodyOf(const UserData& userData) {
    AtomStream stream;
    UserData copy = userData;
    copy.transfer(stream);
    return stream.written();
}

HeaderContent contentOf(AtomList list, const UserData& userData) {
    auto place = std::ranges::find(list.atoms, UserData::type, &RawAtom::type);
    if (place == list.atoms.end()) {
        place = list.atoms.insert(place, {.type = UserData::type, .body = {}});
    }
    place->body = bodyOf(userData);
    HeaderContent content{.atoms = {}, .tail = std::exchange(list.tail, {})};
    AtomStream stream;
    list.transfer(stream);
    content.atoms = stream.written();
    return content;
}

Result<void> MovieUpdate::run(const UserData& userData) {
    if (Result<void> unchanged = checkUnchanged(); !unchanged) {
        return unchanged;
    }
    const Result<FileLayout> layout = readLayout();
    if (!layout) {
        return std::unexpected(layout.error());
    }
    Result<AtomList> atoms = headerAtoms(layout->header);
    if (!atoms) {
        return std::unexpected(atoms.error());
    }
    if (Result<void> second = checkSecond(*layout, *atoms); !second) {
        return second;
    }
    if ((atoms->find(UserData::type) != nullptr) != _movie.userData().has_value()) {
        return failure(ErrorCode::changedMeanwhile,
                       QCoreApplication::translate(
                           "Movie", "The movie header is not what it was; read the movie again."));
    }
    const Result<UpdatePlan> plan = planUpdate(*layout, contentOf(*std::move(atoms), userData));
    if (!plan) {
        return std::unexpected(plan.error());
    }
    if (Result<void> unchanged = checkUnchanged(); !unchanged) {
        return unchanged;
    }
    return carryOut(*plan);
}

/// Both the file that is open and what stands at its path now must be what the movie was read from.
Result<void> MovieUpdate::checkUnchanged() {
    for (const Result<FileAttributes>& attributes :
         {_file.attributes(), FileSystem::current().attributes(_movie.path(), Links::follow)}) {
        if (!attributes) {
            return std::unexpected(attributes.error());
        }
        if (FileIdentity::of(*attributes) != _movie.identity()) {
            return failure(ErrorCode::changedMeanwhile,
                           QCoreApplication::translate(
                               "Movie", "Another program has changed the movie; read it again."));
        }
    }
    return {};
}

Result<FileLayout> MovieUpdate::readLayout() {
    FileLayout layout;
    layout.fileSize = _source.size();
    const Result<void> read = forEachTopLevelAtom(_source, 0, [&](const AtomHeader& atom) -> Result<bool> {
        if (const Result<void> noted = noteAtom(layout, atom); !noted) {
            return std::unexpected(noted.error());
        }
        return true;
    });
    if (!read) {
        return std::unexpected(read.error());
    }
    if (layout.header.offset != _movie.header().offset || layout.header.size != _movie.header().size) {
        return failure(ErrorCode::changedMeanwhile,
                       QCoreApplication::translate(
                           "Movie", "The movie header is not where it was; read the movie again."));
    }
    const qint64 end = layout.atoms.back().end();
    if (end < layout.fileSize) {
        const Result<QByteArrayView> rest = _source.exactly(end, layout.fileSize - end);
        if (!rest) {
            return std::unexpected(rest.error());
        }
        layout.rest = rest->toByteArray();
    }
    return layout;
}

Result<void> MovieUpdate::noteAtom(FileLayout& layout, const AtomHeader& atom) {
    layout.atoms.push_back(atom);
    if (atom.type == FourCharCode("moof") && !layout.firstFragment) {
        layout.firstFragment = atom.offset;
    }
    if (atom.type != movieType) {
        return {};
    }
    if (layout.header.size == 0) {
        layout.header = atom;
    } else if (!layout.second && atom.end() <= layout.fileSize) {
        layout.second = atom;
    } else {
        return failure(ErrorCode::unsupported,
                       QCoreApplication::translate("Movie", "The file has too many movie headers."), {},
                       atom.offset);
    }
    return {};
}

Result<QByteArray> MovieUpdate::headerBody(const AtomHeader& moov) {
    if (moov.bodySize() > maximumInflatedSize) {
        return failure(
            ErrorCode::unsupported,
            QCoreApplication::translate("Movie", "The movie header is too large to be written anew."), {},
            moov.offset);
    }
    std::optional<AtomHeader> cmov;
    const Result<void> walked =
        forEachAtom(_source, moov.bodyOffset(), moov.end(), [&](const AtomHeader& atom) -> Result<void> {
            if (atom.type == FourCharCode("cmov") && !cmov) {
                cmov = atom;
            }
            return {};
        });
    if (!walked) {
        return std::unexpected(walked.error());
    }
    if (cmov) {
        const Result<QByteArray> plain = inflateHeader(_source, *cmov);
        if (!plain) {
            return plain;
        }
        const Result<AtomHeader> inner = readAtomHeader(*plain, 0, plain->size());
        if (!inner || inner->type != movieType || inner->end() > plain->size()) {
            return failure(
                ErrorCode::malformed,
                QCoreApplication::translate("Movie", "The compressed header holds no movie header."), {},
                cmov->offset);
        }
        return plain->sliced(inner->bodyOffset(), inner->bodySize());
    }
    const Result<QByteArrayView> body = _source.exactly(moov.bodyOffset(), moov.bodySize());
    if (!body) {
        return std::unexpected(body.error());
    }
    return body->toByteArray();
}

Result<AtomList> MovieUpdate::headerAtoms(const AtomHeader& moov) {
    const Result<QByteArray> body = headerBody(moov);
    if (!body) {
        return std::unexpected(body.error());
    }
    AtomList list;
    AtomStream stream(*body, moov.bodyOffset());
    stream.transfer(list);
    removePadding(list);
    return list;
}

/// Two headers that say the same but for the user data are what an interrupted update leaves.
Result<void> MovieUpdate::checkSecond(const FileLayout& layout, const AtomList& atoms) {
    if (!layout.second) {
        return {};
    }
    Result<AtomList> second = headerAtoms(*layout.second);
    if (!second) {
        return std::unexpected(std::move(second.error()));
    }
    AtomList first = atoms;
    for (AtomList* list : {&first, &*second}) {
        std::erase_if(list->atoms, [](const RawAtom& atom) { return atom.type == UserData::type; });
    }
    if (first != *second) {
        return failure(ErrorCode::unsupported,
                       QCoreApplication::translate("Movie", "The file has two different movie headers."), {},
                       layout.second->offset);
    }
    return {};
}

Result<void> MovieUpdate::carryOut(const UpdatePlan& plan) {
    for (const std::vector<PlannedWrite>& step : plan.steps) {
        for (const PlannedWrite& write : step) {
            if (Result<void> written = _file.write(write.offset, write.bytes); !written) {
                return written;
            }
        }
        if (Result<void> synced = _file.sync(); !synced) {
            return synced;
        }
    }
    return {};
}

Result<void> write(const Movie& movie, const UserData& userData) {
    const auto file = FileSystem::current().open(movie.path(), OpenMode::readWrite);
    if (!file) {
        return std::unexpected(file.error());
    }
    return MovieUpdate(movie, **file).run(userData);
}

Result<void> checkWritable(const Movie& movie) {
    if (movie.isReferenceMovie()) {
        return failure(ErrorCode::unsupported,
                       QCoreApplication::translate(
                           "Movie", "The file only refers to other movies; nothing is written to it."));
    }
    return {};
}

Result<void> update(const Movie& movie, FourCharCode type, int index, const QByteArray& bytes) {
    if (Result<void> writable = checkWritable(movie); !writable) {
        return writable;
    }
    if (!movie.userData()) {
        return failure(ErrorCode::notFound,
                       QCoreApplication::translate("Movie", "The movie has no list of user data."));
    }
    if (movie.userData()->item(type, index) == bytes) {
        return {};
    }
    UserData changed = *movie.userData();
    if (Result<void> set = changed.setItem(type, index, bytes); !set) {
        return set;
    }
    return write(movie, changed);
}

Result<void> add(const Movie& movie) {
    if (movie.userData()) {
        return {};
    }
    if (Result<void> writable = checkWritable(movie); !writable) {
        return writable;
    }
    return write(movie, UserData());
}

Result<void> namingTheFile(Result<void> result, const Movie& movie) {
    if (!result) {
        result.error().path = movie.path();
    }
    return result;
}

}  // namespace

Result<void> setUserDataItem(const Movie& movie, FourCharCode type, int index, const QByteArray& bytes) {
    return namingTheFile(update(movie, type, index, bytes), movie);
}

Result<void> setUserDataItem(const QString& path, FourCharCode type, int index, const QByteArray& bytes) {
    const Result<Movie> movie = Movie::open(path);
    if (!movie) {
        return std::unexpected(movie.error());
    }
    return setUserDataItem(*movie, type, index, bytes);
}

Result<void> addUserData(const Movie& movie) {
    return namingTheFile(add(movie), movie);
}

}  // namespace marquill
