#include "movie/UpdatePlan.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <limits>

namespace marquill {

namespace {

constexpr FourCharCode freeType("free");
constexpr FourCharCode movieType("moov");
constexpr qint64 headerSize = 8;
constexpr qint64 shortSizeLimit = std::numeric_limits<quint32>::max();
/// A free atom is taken whole, and padded within the header, up to this much above the header's size.
constexpr qint64 largestPadding = 65536;
/// What a write of two bytes never crosses if the device is to write it whole.
constexpr qint64 sectorSize = 512;

/// Room for a longer record next time.
qint64 slackFor(qint64 size) {
    return std::clamp<qint64>(size / 4, 512, 16384);
}

/// Whether anyone may write there: free atoms, and headers whose switch was cut after one, two or three
/// bytes.
bool isFree(FourCharCode type) {
    constexpr std::array types = {freeType,
                                  FourCharCode("skip"),
                                  FourCharCode("mree"),
                                  FourCharCode("moee"),
                                  FourCharCode("mooe"),
                                  FourCharCode("foov"),
                                  FourCharCode("frov"),
                                  FourCharCode("frev")};
    return std::ranges::find(types, type) != types.end();
}

QByteArray typeBytes(FourCharCode type) {
    return atomHeaderBytes(type, 0).sliced(4);
}

/// A number of 32 bits in which only one byte is not zero.
struct OneByteNumber {
    int shift = 0;  ///< of the byte: 0, 8, 16 or 24
    qint64 byte = 0;

    qint64 value() const { return byte << shift; }
    /// Where the byte stands in a size field at `offset`.
    PlannedWrite writeAt(qint64 offset) const {
        return {offset + 3 - shift / 8, QByteArray(1, static_cast<char>(byte))};
    }
};

/// The smallest such number of at least `minimum`, if there is one.
std::optional<OneByteNumber> oneByteNumber(qint64 minimum) {
    for (const int shift : {0, 8, 16, 24}) {
        const qint64 unit = qint64{1} << shift;
        const qint64 byte = (minimum + unit - 1) / unit;
        if (byte <= 0xFF) {
            return OneByteNumber{shift, byte};
        }
    }
    return std::nullopt;
}

class Planner {
  public:
    Planner(const FileLayout& layout, const HeaderContent& content) : _layout(layout), _content(content) {}

    Result<UpdatePlan> plan();

  private:
    using Steps = std::vector<std::vector<PlannedWrite>>;

    bool fits(qint64 size) const;
    bool isRoom(const AtomHeader& atom) const;
    bool takeWhole(const AtomHeader& room);
    bool takePart(const AtomHeader& room);
    bool takePart(const AtomHeader& room, int shift, qint64 wanted);
    Result<void> takeEnd();
    Result<qint64> beginOfEnd();
    Result<qint64> closeLastAtom(const AtomHeader& last);
    Result<qint64> closedSize(const AtomHeader& last, PlannedWrite& write) const;
    Result<void> grow(qint64 begin, bool isFreeAlready);
    void writeBody(qint64 offset, qint64 size, std::vector<PlannedWrite>& writes) const;
    void switchTo(qint64 offset);

    const FileLayout& _layout;
    const HeaderContent& _content;
    Steps _steps;
};

Result<UpdatePlan> Planner::plan() {
    if (_layout.second) {
        _steps.push_back({{_layout.second->offset + 4, typeBytes(freeType)}});
    }
    const auto rooms = [this](auto take) {
        return std::ranges::any_of(_layout.atoms,
                                   [&](const AtomHeader& atom) { return isRoom(atom) && take(atom); });
    };
    const bool taken = rooms([this](const AtomHeader& atom) { return takeWhole(atom); }) ||
                       rooms([this](const AtomHeader& atom) { return takePart(atom); });
    if (!taken) {
        if (Result<void> end = takeEnd(); !end) {
            return std::unexpected(std::move(end.error()));
        }
    }
    return UpdatePlan{std::move(_steps)};
}

/// Whether an atom of `size` bytes holds the header: to the byte, or with a free atom in what is left.
bool Planner::fits(qint64 size) const {
    const qint64 left = size - headerSize - _content.atoms.size() - _content.tail.size();
    return left == 0 || left >= headerSize;
}

bool Planner::isRoom(const AtomHeader& atom) const {
    const bool isSecond = _layout.second && _layout.second->offset == atom.offset;
    return (isFree(atom.type) || isSecond) && !atom.reachesToEnd && atom.end() <= _layout.fileSize &&
           (!_layout.firstFragment || atom.end() <= *_layout.firstFragment);
}

bool Planner::takeWhole(const AtomHeader& room) {
    const qint64 size = room.size - room.headerSize + headerSize;
    if (!fits(size) || size - _content.size() > std::max(largestPadding, _content.size())) {
        return false;
    }
    std::vector<PlannedWrite> writes;
    writeBody(room.bodyOffset(), room.bodySize(), writes);
    if (room.type != freeType) {
        writes.push_back({room.offset + 4, typeBytes(freeType)});
    }
    _steps.push_back(std::move(writes));
    switchTo(room.offset);
    return true;
}

bool Planner::takePart(const AtomHeader& room) {
    if (room.headerSize != headerSize) {
        return false;
    }
    for (const qint64 wanted : {_content.size() + slackFor(_content.size()), _content.size()}) {
        for (const int shift : {0, 8, 16, 24}) {
            if (takePart(room, shift, wanted)) {
                return true;
            }
        }
    }
    return false;
}

/// Takes the end of a free atom by lowering one byte of its size; the front stays free.
bool Planner::takePart(const AtomHeader& room, int shift, qint64 wanted) {
    const qint64 unit = qint64{1} << shift;
    const qint64 available = (room.size >> shift & 0xFF) * unit;
    const qint64 taken = (wanted + unit - 1) / unit * unit;
    const qint64 front = room.size - taken;
    if (taken > available || front < headerSize || taken > shortSizeLimit) {
        return false;
    }
    const bool leavesRest = taken - wanted > largestPadding;
    const qint64 size = leavesRest ? wanted : taken;
    if (!fits(size)) {
        return false;
    }
    const qint64 offset = room.offset + front;
    std::vector<PlannedWrite> writes = {{offset, atomHeaderBytes(freeType, static_cast<quint32>(size))}};
    writeBody(offset + headerSize, size - headerSize, writes);
    if (leavesRest) {
        writes.push_back({offset + size, atomHeaderBytes(freeType, static_cast<quint32>(taken - size))});
    }
    _steps.push_back(std::move(writes));
    _steps.push_back({OneByteNumber{shift, front >> shift & 0xFF}.writeAt(room.offset)});
    switchTo(offset);
    return true;
}

Result<void> Planner::takeEnd() {
    if (_layout.firstFragment) {
        return failure(
            ErrorCode::unsupported,
            QCoreApplication::translate(
                "UpdatePlan",
                "The movie was recorded in fragments and has no room before them for a longer header."));
    }
    const AtomHeader& last = _layout.atoms.back();
    if (last.reachesToEnd && isFree(last.type)) {
        return grow(last.offset, last.type == freeType);
    }
    const Result<qint64> begin = beginOfEnd();
    if (!begin) {
        return std::unexpected(begin.error());
    }
    return grow(*begin, false);
}

/// Where a new last atom begins.
Result<qint64> Planner::beginOfEnd() {
    const AtomHeader& last = _layout.atoms.back();
    if (last.end() > _layout.fileSize) {
        return failure(ErrorCode::unsupported,
                       QCoreApplication::translate(
                           "UpdatePlan", "The file ends within its last atom; nothing is added to it."),
                       {}, last.offset);
    }
    if (last.reachesToEnd) {
        return closeLastAtom(last);
    }
    if (std::ranges::any_of(_layout.rest, [](char byte) { return byte != 0; })) {
        return failure(
            ErrorCode::unsupported,
            QCoreApplication::translate("UpdatePlan",
                                        "The file ends with bytes that are no atom; nothing is added to it."),
            {}, last.end());
    }
    return last.end();
}

/// Gives an atom "to the end" its size. So that a single write does it, the atom is first made a little
/// longer: what is behind it belongs to it anyway.
Result<qint64> Planner::closeLastAtom(const AtomHeader& last) {
    PlannedWrite write;
    const Result<qint64> size = closedSize(last, write);
    if (!size) {
        return size;
    }
    const qint64 added = *size - last.size;
    const bool isHeader = last.type == movieType;
    if (added > (isHeader ? headerSize : 0)) {
        _steps.push_back({{last.offset + *size - 1, QByteArray(1, '\0')}});
    }
    // Within the header the zeros, which end its atoms until then, become a free atom.
    if (added > 0 && isHeader) {
        _steps.push_back({{last.end(), atomHeaderBytes(freeType, static_cast<quint32>(added))}});
    }
    _steps.push_back({std::move(write)});
    return last.offset + *size;
}

Result<qint64> Planner::closedSize(const AtomHeader& last, PlannedWrite& write) const {
    const auto leavesRoom = [&](qint64 size) {
        const qint64 added = size - last.size;
        return last.type != movieType || added == 0 || added >= headerSize;
    };
    std::optional<OneByteNumber> number = oneByteNumber(last.size);
    if (number && !leavesRoom(number->value())) {
        number = oneByteNumber(last.size + headerSize);
    }
    if (number && number->shift <= 16) {
        write = number->writeAt(last.offset);
        return number->value();
    }
    // Beyond 16 MB two bytes are needed: a whole number of 64 KiB, in one sector of the device.
    constexpr qint64 unit = 65536;
    qint64 size = (last.size + unit - 1) / unit * unit;
    size += leavesRoom(size) ? 0 : unit;
    if (size > shortSizeLimit || last.offset % sectorSize == sectorSize - 1) {
        return failure(ErrorCode::unsupported,
                       QCoreApplication::translate(
                           "UpdatePlan", "The last atom has no size, and cannot be given one safely."),
                       {}, last.offset);
    }
    write = {last.offset, atomHeaderBytes(freeType, static_cast<quint32>(size)).first(2)};
    return size;
}

/// Appends two free atoms of one size, the first with the header in it. Until its size is written, the first
/// reaches to the end of the file and hides all that is being written.
Result<void> Planner::grow(qint64 begin, bool isFreeAlready) {
    const OneByteNumber size = *oneByteNumber(_content.size() + slackFor(_content.size()));
    const qint64 second = begin + size.value();
    const qint64 end = second + size.value();
    const qint64 secondSize = std::max(end, _layout.fileSize) - second;
    if (secondSize > shortSizeLimit) {
        return failure(ErrorCode::unsupported,
                       QCoreApplication::translate(
                           "UpdatePlan", "The free atom at the end of the file is too large to be used."),
                       {}, begin);
    }
    std::vector<PlannedWrite> writes;
    if (!isFreeAlready) {
        writes.push_back({begin, atomHeaderBytes(freeType, 0)});
    }
    writeBody(begin + headerSize, size.value() - headerSize, writes);
    writes.push_back({second, atomHeaderBytes(freeType, static_cast<quint32>(secondSize))});
    if (end > _layout.fileSize) {
        writes.push_back({end - 1, QByteArray(1, '\0')});
    }
    _steps.push_back(std::move(writes));
    _steps.push_back({size.writeAt(begin)});
    switchTo(begin);
    return {};
}

/// The body of the header in `size` bytes at `offset`; what is left is a free atom within it.
void Planner::writeBody(qint64 offset, qint64 size, std::vector<PlannedWrite>& writes) const {
    const qint64 left = size - _content.atoms.size() - _content.tail.size();
    QByteArray bytes = _content.atoms;
    if (left > 0) {
        bytes += atomHeaderBytes(freeType, static_cast<quint32>(left));
    }
    writes.push_back({offset, std::move(bytes)});
    if (!_content.tail.isEmpty()) {
        writes.push_back({offset + size - _content.tail.size(), _content.tail});
    }
}

/// The new header comes into force, then the old one goes out of it.
void Planner::switchTo(qint64 offset) {
    _steps.push_back({{offset + 4, typeBytes(movieType)}});
    _steps.push_back({{_layout.header.offset + 4, typeBytes(freeType)}});
}

}  // namespace

Result<UpdatePlan> planUpdate(const FileLayout& layout, const HeaderContent& content) {
    if (content.size() > shortSizeLimit / 4) {
        return failure(
            ErrorCode::unsupported,
            QCoreApplication::translate("UpdatePlan", "The movie header is too large to be written anew."));
    }
    return Planner(layout, content).plan();
}

}  // namespace marquill
