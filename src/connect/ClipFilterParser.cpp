// Takes a query apart: words, "phrases", fields with what they ask for, and what is not wanted.
#include "connect/ClipFilter.h"
#include "platform/FoldedText.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace marquill {

namespace {

enum class Subject : quint8 { text, rating, connection };

struct FieldName {
    const char16_t* name;
    Subject subject;
    ClipField field;  // of a text
};

// What may stand before a colon. Parts of the language, the same in every translation.
constexpr std::array fieldNames = {
    FieldName{u"name", Subject::text, ClipField::name},
    FieldName{u"file", Subject::text, ClipField::file},
    FieldName{u"scene", Subject::text, ClipField::scene},
    FieldName{u"take", Subject::text, ClipField::take},
    FieldName{u"label", Subject::text, ClipField::label},
    FieldName{u"comment", Subject::text, ClipField::comment},
    FieldName{u"marker", Subject::text, ClipField::marker},
    FieldName{u"rating", Subject::rating, ClipField{}},
    FieldName{u"connected", Subject::connection, ClipField{}},
};

bool isOpeningQuote(QChar c) {
    return c == u'"' || c == u'“' || c == u'”' || c == u'„';
}

bool isClosingQuote(QChar c) {
    return c == u'"' || c == u'“' || c == u'”';
}

bool isDigits(const std::string& text) {
    return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

class ClipFilterParser {
  public:
    explicit ClipFilterParser(QStringView query) : _rest(query) {}

    ClipFilter parse() {
        for (skipSpaces(); !_rest.isEmpty(); skipSpaces()) {
            parseTerm();
        }
        return std::move(_filter);
    }

  private:
    // What stands behind a field's colon, or for itself.
    struct Operand {
        QString text;
        bool isWhole = false;   // "=" stands before it
        bool isQuoted = false;  // with its closing mark
    };

    void skipSpaces() {
        while (!_rest.isEmpty() && _rest.front().isSpace()) {
            _rest = _rest.sliced(1);
        }
    }

    void parseTerm() {
        const bool isExcluded = _rest.startsWith(u'-');
        if (isExcluded) {
            _rest = _rest.sliced(1);
        }
        const FieldName* field = fieldHere();
        if (field) {
            _rest = _rest.sliced(QStringView(field->name).size() + 1);
            // "scene: 3" is meant as it looks, unless the 3 belongs to a field of its own.
            const QStringView behindColon = _rest;
            skipSpaces();
            if (fieldHere()) {
                _rest = behindColon;
            }
        }
        const Operand operand = parseOperand(field != nullptr);
        if (!field || field->subject == Subject::text) {
            addText(field, operand, isExcluded);
        } else if (field->subject == Subject::rating) {
            addRating(operand.text, isExcluded);
        } else {
            addConnection(operand.text, isExcluded);
        }
    }

    // The known field whose name and colon stand here, or null.
    const FieldName* fieldHere() const {
        const auto* const found = std::ranges::find_if(fieldNames, [this](const FieldName& field) {
            const QStringView name(field.name);
            return _rest.startsWith(name, Qt::CaseInsensitive) && _rest.size() > name.size() &&
                   _rest.at(name.size()) == u':';
        });
        return found == fieldNames.end() ? nullptr : found;
    }

    Operand parseOperand(bool isOfField) {
        Operand operand;
        if (isOfField && _rest.startsWith(u'=')) {
            operand.isWhole = true;
            _rest = _rest.sliced(1);
        }
        if (!_rest.isEmpty() && isOpeningQuote(_rest.front())) {
            const auto* const end = std::find_if(_rest.begin() + 1, _rest.end(), isClosingQuote);
            operand.isQuoted = end != _rest.end();
            take(operand, 1, end - _rest.begin(), operand.isQuoted ? 1 : 0);
        } else {
            const auto* const end =
                std::find_if(_rest.begin(), _rest.end(), [](QChar c) { return c.isSpace(); });
            take(operand, 0, end - _rest.begin(), 0);
        }
        return operand;
    }

    void take(Operand& operand, qsizetype begin, qsizetype end, qsizetype closing) {
        operand.text = _rest.sliced(begin, end - begin).toString();
        _rest = _rest.sliced(end + closing);
    }

    void add(decltype(ClipFilter::Term::what) what, bool isExcluded) {
        _filter._terms.push_back({.what = std::move(what), .isExcluded = isExcluded});
    }

    void tellProblem(const QString& problem) {
        if (_filter._problem.isEmpty()) {
            _filter._problem = problem;
        }
    }

    void addText(const FieldName* field, const Operand& operand, bool isExcluded) {
        using Match = ClipFilter::TextMatch;
        ClipFilter::Text text{
            .field = std::nullopt, .match = Match::contains, .text = foldedText(operand.text)};
        if (field) {
            text.field = field->field;
            if (operand.isWhole || (operand.isQuoted && text.text.empty())) {
                text.match = Match::equals;
            } else if (field->field == ClipField::label) {
                text.match = Match::begins;
            } else if (field->field == ClipField::take && isDigits(text.text)) {
                text.match = Match::equalsNumber;
            }
        }
        const bool asksForNone = field && operand.isQuoted;
        if (!text.text.empty() || asksForNone) {
            add(std::move(text), isExcluded);
        }
    }

    void addRating(QStringView operand, bool isExcluded) {
        using Comparison = ClipFilter::Comparison;
        struct Sign {
            QLatin1StringView text;
            Comparison comparison = Comparison::equal;
        };
        // The longer ones before those that they begin with.
        constexpr std::array signs = {
            Sign{QLatin1StringView(">="), Comparison::greaterOrEqual},
            Sign{QLatin1StringView("<="), Comparison::lessOrEqual},
            Sign{QLatin1StringView(">"), Comparison::greater},
            Sign{QLatin1StringView("<"), Comparison::less},
            Sign{QLatin1StringView("="), Comparison::equal},
        };
        const QString plain = operand.toString().replace(u'≥', u">="_s).replace(u'≤', u"<="_s);
        const auto* const sign = std::ranges::find_if(
            signs, [&plain](const Sign& candidate) { return plain.startsWith(candidate.text); });
        const QString number = sign == signs.end() ? plain : plain.sliced(sign->text.size());
        if (number.isEmpty()) {
            return;
        }
        if (const std::optional<qint64> rating = ratingOf(number)) {
            add(ClipFilter::Rating{.comparison = sign == signs.end() ? Comparison::equal : sign->comparison,
                                   .rating = *rating},
                isExcluded);
        } else {
            tellProblem(QCoreApplication::translate("ClipFilter", "rating: needs a number from 0 to 5"));
        }
    }

    static std::optional<qint64> ratingOf(const QString& number) {
        if (u"none"_s.startsWith(number, Qt::CaseInsensitive)) {
            return 0;
        }
        const QChar digit = number.front();
        const bool isRating = number.size() == 1 && digit >= u'0' && digit <= u'5';
        return isRating ? std::optional<qint64>(digit.unicode() - u'0') : std::nullopt;
    }

    void addConnection(const QString& operand, bool isExcluded) {
        using Connection = ClipFilter::Connection;
        if (operand.isEmpty()) {
            return;
        }
        for (const auto& [word, connection] :
             {std::pair(u"yes"_s, Connection::yes), std::pair(u"no"_s, Connection::no),
              std::pair(u"offline"_s, Connection::offline)}) {
            if (word.startsWith(operand, Qt::CaseInsensitive)) {
                add(connection, isExcluded);
                return;
            }
        }
        tellProblem(QCoreApplication::translate("ClipFilter", "connected: needs yes, no or offline"));
    }

    QStringView _rest;
    ClipFilter _filter;
};

ClipFilter ClipFilter::parse(const QString& query) {
    return ClipFilterParser(query).parse();
}

}  // namespace marquill
