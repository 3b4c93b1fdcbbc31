// What can be searched of one clip: its texts, folded once, and what else a search may ask for. A value of a
// few words beyond its texts; the clip table keeps one a clip while clips are searched for.
#pragma once

#include "clipstore/ClipInfo.h"

#include <array>
#include <string>
#include <string_view>

namespace marquill {

/// The texts of a clip that a search can ask for one by one.
enum class ClipField : quint8 { name, file, scene, take, label, comment, marker };
inline constexpr std::size_t clipFieldCount = 7;

class ClipSearchText {
  public:
    /// Ends each field, and each marker's title and comment within theirs. No folded text holds it, so
    /// nothing is found across two of them.
    static constexpr char separator = '\x1F';

    /// As the record is now.
    explicit ClipSearchText(const ClipInfo& clip);

    /// All fields, see foldedText().
    std::string_view text() const { return _text; }
    /// One of them. `name` is the display name, `file` that of the connected media without its extension,
    /// `marker` the titles and comments of all markers, separated; absent ones are empty.
    std::string_view text(ClipField field) const;
    /// 0 for none.
    qint64 rating() const { return _rating; }
    /// The clip is a placeholder; a movie carries its record itself.
    bool isPlaceholder() const { return _isPlaceholder; }
    /// A placeholder that has media, whether or not they stand where they should.
    bool isConnected() const { return _isConnected; }

  private:
    void append(const std::optional<QString>& text);
    void endField(ClipField field);

    std::string _text;
    std::array<quint32, clipFieldCount> _ends{};  // in _text, before their separators
    qint64 _rating = 0;
    bool _isPlaceholder = false;
    bool _isConnected = false;
};

}  // namespace marquill
