#include "platform/RecordTextValidator.h"

#include "platform/FileNames.h"
#include "platform/PropertyListText.h"

namespace marquill {

namespace {

constexpr qsizetype mostBytesInClipName = 240;

}  // namespace

QValidator::State RecordTextValidator::validate(QString& text, int&) const {
    return isPropertyListText(text) ? Acceptable : Invalid;
}

QValidator::State ClipNameValidator::validate(QString& text, int& position) const {
    const bool isNamePart = !text.startsWith("tmp_"_L1) && hasNameCharacters(text) && !text.contains(u'\n') &&
                            !text.contains(u'\r') && text.toUtf8().size() <= mostBytesInClipName;
    return isNamePart ? RecordTextValidator::validate(text, position) : Invalid;
}

}  // namespace marquill
