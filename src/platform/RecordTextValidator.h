// What may be typed into a field whose text goes into a clip's record or becomes a clip's file name: what
// could not be written cannot be typed, so that no take fails for it. Main thread.
#pragma once

#include <QValidator>

namespace marquill {

/// Refuses characters that no property list can hold.
class RecordTextValidator : public QValidator {
    Q_OBJECT

  public:
    using QValidator::QValidator;
    State validate(QString& text, int& position) const override;
};

/// Refuses also what cannot be part of a file name: "/", line ends, and more than 240 bytes of UTF-8, which
/// leaves room for take and extension in the 255 bytes that file systems give a name; and "tmp_" at the
/// start, as no list of clips shows such a file.
class ClipNameValidator : public RecordTextValidator {
    Q_OBJECT

  public:
    using RecordTextValidator::RecordTextValidator;
    State validate(QString& text, int& position) const override;
};

}  // namespace marquill
