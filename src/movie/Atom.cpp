#include "movie/Atom.h"

#include <QCoreApplication>
#include <QtEndian>

#include <algorithm>
#include <limits>

namespace marquill {

namespace {

std::unexpected<Error> impossibleSize(const AtomHeader& header, quint64 size) {
    return failure(ErrorCode::malformed,
                   QCoreApplication::translate("Atom", "An atom of type '%1' has the impossible size %2.")
                       .arg(header.type.text())
                       .arg(size),
                   {}, header.offset);
}

}  // namespace

Result<AtomHeader> readAtomHeader(QByteArrayView bytes, qint64 offset, qint64 end) {
    AtomHeader header;
    header.offset = offset;
    const auto shortSize = bytes.size() < 8 ? quint32{0} : qFromBigEndian<quint32>(bytes.data());
    quint64 size = shortSize;
    if (bytes.size() < (shortSize == 1 ? 16 : 8)) {
        return failure(ErrorCode::endsEarly,
                       QCoreApplication::translate("Atom", "The file ends within the header of an atom."), {},
                       offset);
    }
    header.type = FourCharCode(qFromBigEndian<quint32>(bytes.data() + 4));
    if (shortSize == 1) {
        header.headerSize = 16;
        size = qFromBigEndian<quint64>(bytes.data() + 8);
    } else if (shortSize == 0) {
        header.reachesToEnd = true;
        size = static_cast<quint64>(end - offset);
    }
    const auto largest = static_cast<quint64>(std::numeric_limits<qint64>::max() - offset);
    if (size < static_cast<quint64>(header.headerSize) || size > largest) [[unlikely]] {
        return impossibleSize(header, size);
    }
    header.size = static_cast<qint64>(size);
    return header;
}

QByteArray atomHeaderBytes(FourCharCode type, quint32 size) {
    AtomStream stream;
    stream.transfer(size);
    stream.transfer(type);
    return stream.written();
}

QString inAtom(FourCharCode type, const QString& message) {
    return QCoreApplication::translate("Atom", "In the atom '%1': %2").arg(type.text(), message);
}

void VersionAndFlags::check(AtomStream& stream, quint8 newest) const {
    if (version > newest) {
        stream.fail(ErrorCode::unsupported,
                    QCoreApplication::translate("Atom", "Version %1 is not known.").arg(version));
    }
}

void RawAtom::transfer(AtomStream& stream) {
    quint64 total = static_cast<quint64>(size());
    quint32 shortSize = hasLongSize ? 1 : static_cast<quint32>(total);
    stream.transfer(shortSize);
    stream.transfer(type);
    hasLongSize = shortSize == 1;
    if (hasLongSize) {
        stream.transfer(total);
    } else {
        total = shortSize;
    }
    const quint64 headerSize = hasLongSize ? 16 : 8;
    if (total < headerSize || total - headerSize > std::numeric_limits<qint64>::max()) {
        stream.fail(ErrorCode::malformed,
                    QCoreApplication::translate("Atom", "An atom has the impossible size %1.").arg(total));
        return;
    }
    stream.transferBytes(body, static_cast<qint64>(total - headerSize));
}

const RawAtom* AtomList::find(FourCharCode type) const {
    const auto found = std::ranges::find(atoms, type, &RawAtom::type);
    return found == atoms.end() ? nullptr : &*found;
}

qint64 AtomList::size() const {
    qint64 size = tail.size();
    for (const RawAtom& atom : atoms) {
        size += atom.size();
    }
    return size;
}

void AtomList::transfer(AtomStream& stream) {
    if (!stream.isReading()) {
        for (RawAtom& atom : atoms) {
            stream.transfer(atom);
        }
        stream.transferRest(tail);
        return;
    }
    const QByteArrayView bytes = stream.takeRest();
    qint64 position = 0;
    while (position < bytes.size()) {
        AtomStream one(bytes.sliced(position), position);
        RawAtom atom;
        one.transfer(atom);
        if (one.hasFailed()) {
            break;
        }
        position += one.position();
        atoms.push_back(std::move(atom));
    }
    tail = bytes.sliced(position).toByteArray();
}

}  // namespace marquill
