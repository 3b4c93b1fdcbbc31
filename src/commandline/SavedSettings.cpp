#include "commandline/SavedSettings.h"

#include "markers/MarkerSetStore.h"
#include "platform/UserDefaults.h"

#include <algorithm>

namespace marquill::SavedSettings {

namespace {

std::optional<Dictionary> savedSection(const QString& key) {
    const std::optional<Value> saved = UserDefaults::standard().value(key);
    return saved ? saved->dictionary() : std::nullopt;
}

Dictionary section(const QString& key) {
    return savedSection(key).value_or(Dictionary());
}

Dictionary recorderSettings() {
    return section(u"kOfflineRecorder"_s);
}

Dictionary markerSettings() {
    return section(u"kMarkerSets"_s);
}

}  // namespace

QStringList labels() {
    const std::optional<Dictionary> preferences = savedSection(u"PrefDict"_s);
    if (!preferences) {
        return {u"Print"_s, u"Trash"_s, u"Audio"_s, u"1st Half"_s, u"2nd Half"_s};
    }
    QStringList labels;
    const Array saved = preferences->array(u"LabelArray"_s).value_or(Array());
    for (const Value& label : saved.values()) {
        if (const std::optional<QString> text = label.string()) {
            labels.append(*text);
        }
    }
    return labels;
}

std::vector<MarkerSet> markerSets() {
    std::vector<MarkerSet> sets;
    const Array saved = markerSettings().array(u"kMarkerSetArray"_s).value_or(Array());
    for (const Value& set : saved.values()) {
        if (const std::optional<Dictionary> record = set.dictionary()) {
            sets.emplace_back(*record);
        }
    }
    if (sets.empty()) {
        sets.push_back(MarkerSetStore::newMarkerSetWithTitle(u"Default Set"_s));
    }
    return sets;
}

MarkerSet currentMarkerSet() {
    const std::vector<MarkerSet> sets = markerSets();
    const Dictionary settings = markerSettings();
    const Value* const saved = settings.find(u"kMarkerCurrSet"_s);
    const std::optional<quint64> identity = saved ? unsignedNumber(*saved) : std::nullopt;
    const auto current = std::ranges::find_if(
        sets, [&](const MarkerSet& set) { return identity && set.markerID() == identity; });
    return current != sets.end() ? *current : sets.front();
}

QString recorderClipName() {
    return recorderSettings().string(u"kOfflineRecorderClipName"_s).value_or(u"Clip"_s);
}

QString recorderSceneName() {
    return recorderSettings().string(u"kOfflineRecorderSceneName"_s).value_or(u"Scene"_s);
}

}  // namespace marquill::SavedSettings
