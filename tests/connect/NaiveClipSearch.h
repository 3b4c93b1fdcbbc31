// Random clips and queries, and a reading of each query that is too plain to be wrong: texts are lower-cased
// and compared as they stand, term by term.
#pragma once

#include "clipstore/ClipInfo.h"

#include <rapidcheck.h>

namespace marquill::NaiveClipSearch {

// Few words, so that queries find something.
inline const QStringList words = {u"boat"_s, u"Boat house"_s, u"quay"_s, u"3A"_s, u"13"_s, u"cut"_s, u"CU"_s};
inline const QStringList textFields = {u"name"_s,  u"file"_s,    u"scene"_s, u"take"_s,
                                       u"label"_s, u"comment"_s, u"marker"_s};
inline const QStringList signs = {u""_s, u"="_s, u"<"_s, u"<="_s, u">"_s, u">="_s};

/// The texts of one field, in lower case; those of the markers are several.
inline QStringList textsOf(const ClipInfo& clip, const QString& field) {
    const auto one = [](const std::optional<QString>& text) {
        return text && !text->isEmpty() ? QStringList{text->toLower()} : QStringList();
    };
    const QString name = clip.clipName().value_or(QString());
    if (field == u"name"_s) {
        return one(name.section(u'#', 0, 0));
    }
    if (field == u"file"_s) {
        return one(clip.clipPath().value_or(QString()).section(u'/', -1).section(u'.', 0, 0));
    }
    if (field == u"scene"_s) {
        return one(clip.clipScene());
    }
    if (field == u"take"_s) {
        return one(clip.clipTake());
    }
    if (field == u"label"_s) {
        return one(clip.clipLabel());
    }
    if (field == u"comment"_s) {
        return one(clip.clipComment());
    }
    QStringList texts;
    for (const Value& marker : clip.clipMarkerArray().value_or(Array()).values()) {
        texts += one(marker.dictionary()->string(u"clipMarkerTitle"_s));
        texts += one(marker.dictionary()->string(u"clipMarkerComment"_s));
    }
    return texts;
}

struct Term {
    bool isExcluded = false;
    QString field;  // "", a text field, "rating" or "connected"
    QString sign;   // of a rating; "=" also of a text field
    QString value;

    QString text() const {
        const QString prefix = (isExcluded ? u"-"_s : u""_s) + (field.isEmpty() ? u""_s : field + u':');
        const bool isPlain = field == u"rating"_s || field == u"connected"_s;
        return isPlain ? prefix + sign + value : prefix + sign + u'"' + value + u'"';
    }

    bool findsRating(qint64 rating) const {
        const qint64 wanted = value.toLongLong();
        return (sign.contains(u'<') && rating < wanted) || (sign.contains(u'>') && rating > wanted) ||
               ((sign.isEmpty() || sign.contains(u'=')) && rating == wanted);
    }

    bool findsText(const QString& text) const {
        const QString wanted = value.toLower();
        if (sign == u"="_s) {
            return text == wanted;
        }
        if (field == u"label"_s) {
            return text.startsWith(wanted);
        }
        if (bool isNumber = false; field == u"take"_s && (wanted.toInt(&isNumber), isNumber)) {
            return text == wanted;
        }
        return text.contains(wanted);
    }

    bool finds(const ClipInfo& clip) const {
        if (field == u"rating"_s) {
            return findsRating(clip.clipRating().value_or(0));
        }
        if (field == u"connected"_s) {
            const bool isMovie = clip.clipName().value_or(QString()).endsWith(u".mov"_s);
            return (isMovie || clip.clipPath()) == (value == u"yes"_s);
        }
        for (const QString& searched : field.isEmpty() ? textFields : QStringList{field}) {
            for (const QString& text : textsOf(clip, searched)) {
                if (findsText(text)) {
                    return true;
                }
            }
        }
        return false;
    }
};

struct Query {
    std::vector<Term> terms;

    QString text() const {
        QStringList texts;
        for (const Term& term : terms) {
            texts.append(term.text());
        }
        return texts.join(u' ');
    }

    bool finds(const ClipInfo& clip) const {
        return std::ranges::all_of(terms,
                                   [&clip](const Term& term) { return term.finds(clip) != term.isExcluded; });
    }
};

inline rc::Gen<QString> oneOf(const QStringList& texts) {
    return rc::gen::map(rc::gen::inRange(0, static_cast<int>(texts.size())),
                        [texts](int place) { return texts[place]; });
}

inline rc::Gen<Term> terms() {
    return rc::gen::exec([] {
        Term term;
        term.isExcluded = *rc::gen::arbitrary<bool>();
        term.field = *oneOf(textFields + QStringList{u""_s, u""_s, u"rating"_s, u"connected"_s});
        if (term.field == u"rating"_s) {
            term.sign = *oneOf(signs);
            term.value = QString::number(*rc::gen::inRange(0, 6));
        } else if (term.field == u"connected"_s) {
            term.value = *oneOf({u"yes"_s, u"no"_s});
        } else {
            term.sign = term.field.isEmpty() ? u""_s : *oneOf({u""_s, u"="_s});
            term.value = *oneOf(words + QStringList{u"o"_s, u"1"_s, u"t h"_s, u"cut"_s});
        }
        return term;
    });
}

inline rc::Gen<Query> queries() {
    return rc::gen::map(rc::gen::container<std::vector<Term>>(terms()),
                        [](std::vector<Term> terms) { return Query{std::move(terms)}; });
}

inline rc::Gen<ClipInfo> clips() {
    return rc::gen::exec([] {
        const auto maybe = [] {
            return *rc::gen::arbitrary<bool>() ? std::optional(*oneOf(words)) : std::nullopt;
        };
        ClipInfo clip;
        const bool isMovie = *rc::gen::inRange(0, 4) == 0;
        clip.setClipName(*oneOf(words) + (isMovie ? u"#01.mov"_s : u"#01.xml"_s));
        clip.setClipTake(QString::number(*rc::gen::inRange(1, 14)));
        clip.setClipScene(maybe());
        clip.setClipLabel(maybe());
        clip.setClipComment(maybe());
        if (const std::optional<QString> media = maybe(); media && !isMovie) {
            clip.setClipPath(u"/media/"_s + *media + u".mov"_s);
        }
        if (*rc::gen::arbitrary<bool>()) {
            clip.setClipRating(*rc::gen::inRange(0, 6));
        }
        Array markers;
        for (int count = *rc::gen::inRange(0, 3); count > 0; --count) {
            markers.append(Dictionary{{u"clipMarkerTitle"_s, *oneOf(words)},
                                      {u"clipMarkerComment"_s, maybe().value_or(QString())}});
        }
        clip.setClipMarkerArray(markers);
        return clip;
    });
}

}  // namespace marquill::NaiveClipSearch
