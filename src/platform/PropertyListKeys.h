// Makes the texts of property lists' keys. Each thread has its own; see keyCache().
#pragma once

#include "platform/Literals.h"

#include <QByteArrayView>
#include <QString>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <string_view>

namespace marquill {

/// A text of `utf8`, which is valid. QString::fromUtf8 drops a leading U+FEFF, which here is a character.
inline QString textOfUtf8(std::string_view utf8) {
    if (utf8.starts_with("\xef\xbb\xbf")) [[unlikely]] {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
        return decoder.decode(QByteArrayView(utf8));
    }
    return QString::fromUtf8(QByteArrayView(utf8));
}

// Folders of clips hold the same few dozen keys ten thousands of times; each thread makes each key once and
// all records share it. A slot keeps the last key that fell on it, so strange keys cannot make it grow.
class KeyCache {
  public:
    QString text(std::string_view utf8) {
        Slot& slot = _slots[slotNumber(utf8)];
        if (slot.utf8 != utf8) {
            if (utf8.size() > longestKept) {
                return textOfUtf8(utf8);
            }
            slot.utf8 = utf8;
            slot.text = textOfUtf8(utf8);
        }
        return slot.text;
    }

  private:
    struct Slot {
        std::string utf8;
        QString text = u""_s;
    };

    /// Keys differ in their ends; a hash of all bytes takes longer than making the text anew.
    static size_t slotNumber(std::string_view utf8) {
        std::array<quint64, 2> ends{};
        const size_t size = std::min(utf8.size(), sizeof(quint64));
        std::memcpy(&ends[0], utf8.data(), size);
        std::memcpy(&ends[1], utf8.data() + utf8.size() - size, size);
        return ((ends[0] * 31 + ends[1] + utf8.size()) * 0x9E3779B97F4A7C15ULL) >> 56U;
    }

    static constexpr size_t longestKept = 64;
    std::array<Slot, 256> _slots;
};

/// The one of the calling thread.
inline KeyCache& keyCache() {
    thread_local KeyCache cache;
    return cache;
}

}  // namespace marquill
