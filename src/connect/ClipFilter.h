// Which clips a search finds: what is typed into the search field, taken apart once and then asked of every
// clip. The language is described in docs/manual/reviewing.md. A value, any thread.
#pragma once

#include "connect/ClipSearchText.h"

#include <variant>
#include <vector>

namespace marquill {

class ClipFilter {
  public:
    /// Finds every clip.
    ClipFilter() = default;
    /// Takes `query` apart. No query is wrong as a whole: what has no meaning yet, as an opened quotation
    /// mark or "rating:>", asks for nothing, and what can have none is left out and told by problem().
    static ClipFilter parse(const QString& query);

    /// It asks for nothing, and so finds every clip.
    bool isEmpty() const { return _terms.empty(); }
    /// What was left out of the query, for the user; "" when all of it has a meaning.
    const QString& problem() const { return _problem; }
    /// Whether it must be known if the clips' media stand where they should.
    bool asksForMedia() const;
    /// Whether it finds the clip. `mediaExist` counts only where asksForMedia() says so.
    bool matches(const ClipSearchText& clip, bool mediaExist = true) const;
    /// Whether it finds the same clips, however it was typed.
    bool asksSameAs(const ClipFilter& other) const { return _terms == other._terms; }

  private:
    friend class ClipFilterParser;

    enum class TextMatch : quint8 { contains, begins, equals, equalsNumber };
    struct Text {
        std::optional<ClipField> field;  ///< without one: any
        TextMatch match = TextMatch::contains;
        std::string text;  ///< folded
        bool operator==(const Text&) const = default;
    };
    enum class Comparison : quint8 { equal, less, lessOrEqual, greater, greaterOrEqual };
    struct Rating {
        Comparison comparison = Comparison::equal;
        qint64 rating = 0;
        bool operator==(const Rating&) const = default;
    };
    enum class Connection : quint8 { yes, no, offline };
    struct Term {
        std::variant<Text, Rating, Connection> what;
        bool isExcluded = false;  ///< what it finds is not wanted
        bool operator==(const Term&) const = default;
    };

    static bool finds(const Text& text, const ClipSearchText& clip);
    static bool finds(const Rating& rating, const ClipSearchText& clip);
    static bool finds(Connection connection, const ClipSearchText& clip, bool mediaExist);

    std::vector<Term> _terms;  // all of them must hold
    QString _problem;
};

}  // namespace marquill
