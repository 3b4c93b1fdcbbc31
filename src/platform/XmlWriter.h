// Puts elements of an XML document together as UTF-8 text: one element a line, each level indented by a tab.
// Whatever the texts hold, what comes out is well-formed. Property lists have a writer of their own. A value,
// any thread.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <vector>

namespace marquill {

/// `text` as the content of an element: "&", "<", ">" and carriage returns escaped, and U+FFFD in place of
/// what XML cannot hold at all (other control characters, unpaired surrogates, U+FFFE and U+FFFF).
QByteArray xmlText(const QString& text);

class XmlWriter {
  public:
    /// The elements begin `depth` levels deep, for what is to stand within another document.
    explicit XmlWriter(int depth = 0) : _depth(depth) {}

    /// Begins an element; `name` must live until it is closed.
    void open(QByteArrayView name);
    /// Ends the element that was begun last; an empty one is written as "<name/>".
    void close();
    /// A whole element with nothing in it but text.
    void element(QByteArrayView name, const QString& text);
    /// One with a number in it.
    void element(QByteArrayView name, qint64 number);

    const QByteArray& xml() const { return _xml; }

  private:
    struct Open {
        QByteArrayView name = {};
        qsizetype contentStart = 0;
    };

    void indent() { _xml.append(_depth, '\t'); }

    QByteArray _xml;
    std::vector<Open> _open;
    qsizetype _depth;
};

}  // namespace marquill
