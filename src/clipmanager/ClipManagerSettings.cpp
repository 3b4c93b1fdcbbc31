#include "clipmanager/ClipManagerSettings.h"

#include "platform/Log.h"
#include "platform/UserDefaults.h"

namespace marquill {

namespace {

namespace key {
const QString kWindVisible = u"kWindVisible"_s;
const QString kWindPosX = u"kWindPosX"_s;
const QString kWindPosY = u"kWindPosY"_s;
const QString kWindWidth = u"kWindWidth"_s;
const QString kWindHeight = u"kWindHeight"_s;
const QString kWindExpanded = u"kWindExpanded"_s;
const QString kDayTimelineVisible = u"kDayTimelineVisible"_s;
const QString kPicturesVisible = u"kPicturesVisible"_s;
}  // namespace key

// A number of the settings that can be a place on a screen.
double coordinate(const Dictionary& settings, const QString& key, double otherwise) {
    const double number = settings.real(key).value_or(otherwise);
    return isScreenCoordinate(number) ? number : otherwise;
}

}  // namespace

Dictionary ClipManagerWindowState::settings() const {
    const double height = expanded ? frame.height : expandedHeight;
    const double y = expanded ? frame.y : frame.y + (collapsedHeight - expandedHeight);
    return Dictionary{{key::kWindVisible, visible}, {key::kWindPosX, frame.x},
                      {key::kWindPosY, y},          {key::kWindWidth, frame.width},
                      {key::kWindHeight, height},   {key::kWindExpanded, expanded}};
}

WindowFrame ClipManagerSettings::frame(const Dictionary& settings, const WindowFrame& present) {
    const WindowFrame frame{.x = coordinate(settings, key::kWindPosX, present.x),
                            .y = coordinate(settings, key::kWindPosY, present.y),
                            .width = coordinate(settings, key::kWindWidth, present.width),
                            .height = coordinate(settings, key::kWindHeight, present.height)};
    return frame.width > 0 && frame.height > 0 ? frame : present;
}

bool ClipManagerSettings::isVisible(const Dictionary& settings) {
    return settings.boolean(key::kWindVisible).value_or(true);
}

bool ClipManagerSettings::isDayStripVisible(const Dictionary& settings) {
    return settings.boolean(key::kDayTimelineVisible).value_or(true);
}

void ClipManagerSettings::setDayStripVisible(Dictionary& settings, bool isVisible) {
    settings.set(key::kDayTimelineVisible, isVisible);
}

bool ClipManagerSettings::arePicturesVisible(const Dictionary& settings) {
    return settings.boolean(key::kPicturesVisible).value_or(false);
}

void ClipManagerSettings::setPicturesVisible(Dictionary& settings, bool areVisible) {
    settings.set(key::kPicturesVisible, areVisible);
}

Dictionary ClipManagerSettings::saved() {
    const std::optional<Value> saved = UserDefaults::standard().value(defaultsKey);
    return saved ? saved->dictionary().value_or(Dictionary()) : Dictionary();
}

void ClipManagerSettings::save(const Dictionary& settings) {
    UserDefaults::standard().setValue(defaultsKey, settings);
    if (const Result<void> saved = UserDefaults::standard().save(); !saved) {
        qCWarning(logClipManager).noquote() << saved.error().description();
    }
}

// The floor is asked of what was proposed, not of what is left below.
double constrainedSplitPosition(double proposed, double height) {
    constexpr double leastAbove = 64;
    constexpr double leastBelow = 120;
    if (proposed < leastAbove) {
        return leastAbove;
    }
    return height - proposed < leastBelow ? height - leastBelow : proposed;
}

}  // namespace marquill
