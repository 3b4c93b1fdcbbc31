#include "platform/Theme.h"

#include "platform/Literals.h"
#include "platform/Log.h"
#include "platform/SystemColourScheme.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPointer>
#include <QStyle>
#include <QStyleFactory>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace marquill {

namespace {

struct InUse {
    bool isDark = false;
    std::optional<bool> desktopIsDark;  // by the palette it gave the application at start
    QPointer<SystemColourScheme> system;
};

InUse& inUse() {
    static InUse inUse;
    return inUse;
}

using NamedColour = std::pair<QLatin1StringView, QColor ThemeColours::*>;

// The names that the style sheet uses.
constexpr NamedColour namedColours[] = {
    {"window"_L1, &ThemeColours::window},
    {"base"_L1, &ThemeColours::base},
    {"alternate"_L1, &ThemeColours::alternate},
    {"text"_L1, &ThemeColours::text},
    {"mutedText"_L1, &ThemeColours::mutedText},
    {"disabledText"_L1, &ThemeColours::disabledText},
    {"button"_L1, &ThemeColours::button},
    {"buttonHover"_L1, &ThemeColours::buttonHover},
    {"buttonPressed"_L1, &ThemeColours::buttonPressed},
    {"border"_L1, &ThemeColours::border},
    {"separator"_L1, &ThemeColours::separator},
    {"scrollHandle"_L1, &ThemeColours::scrollHandle},
    {"selection"_L1, &ThemeColours::selection},
    {"selectionText"_L1, &ThemeColours::selectionText},
    {"rowSelection"_L1, &ThemeColours::rowSelection},
    {"inactiveSelection"_L1, &ThemeColours::inactiveSelection},
    {"focus"_L1, &ThemeColours::focus},
    {"accent"_L1, &ThemeColours::accent},
    {"accentPressed"_L1, &ThemeColours::accentPressed},
    {"accentText"_L1, &ThemeColours::accentText},
    {"recording"_L1, &ThemeColours::recording},
    {"warning"_L1, &ThemeColours::warning},
};

QString styleSheet(const ThemeColours& colours) {
    QFile file(u":/theme.qss"_s);
    if (!file.open(QIODevice::ReadOnly)) {
        qCWarning(logPlatform) << "cannot load the style sheet" << file.fileName() << file.errorString();
        return {};
    }
    QString sheet = QString::fromUtf8(file.readAll());
    for (const auto& [name, colour] : namedColours) {
        sheet.replace(u"${"_s + name + u'}', (colours.*colour).name());
    }
    return sheet;
}

bool systemIsDark() {
    InUse& state = inUse();
    switch (state.system ? state.system->scheme() : ColourScheme::noPreference) {
        case ColourScheme::dark:
            return true;
        case ColourScheme::light:
            return false;
        default:
            return state.desktopIsDark.value_or(false);
    }
}

void use(QApplication& application, bool dark) {
    inUse().isDark = dark;
    const ThemeColours& colours = Theme::colours();
    QApplication::setPalette(Theme::palette(colours));
    application.setStyleSheet(styleSheet(colours));
}

void followSystem(QApplication& application) {
    InUse& state = inUse();
    if (!state.system) {
        state.system = new SystemColourScheme;
        state.system->setParent(&application);
    }
    state.system->schemeHasChanged = [&application] { use(application, systemIsDark()); };
    use(application, systemIsDark());
}

bool hasEqualDigits(const QFont& font) {
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(u'0');
    return std::ranges::all_of(
        u"123456789"_s, [&](QChar digit) { return qFuzzyCompare(metrics.horizontalAdvance(digit), width); });
}

// The interface's own font where its digits line up, as in most; else one that is known for it.
QFont fontWithEqualDigits() {
    for (QFont font : {QApplication::font(), QFont(u"DejaVu Sans"_s)}) {
        font.setKerning(false);
        if (hasEqualDigits(font)) {
            return font;
        }
    }
    return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

}  // namespace

const ThemeColours& Theme::darkColours() {
    static const ThemeColours colours = {
        .window = QColor(0x232529),
        .base = QColor(0x1a1c1f),
        .alternate = QColor(0x1f2124),
        .text = QColor(0xe3e5e9),
        .mutedText = QColor(0xa3a9b2),
        .disabledText = QColor(0x757b84),
        .button = QColor(0x34373d),
        .buttonHover = QColor(0x3d4148),
        .buttonPressed = QColor(0x191b1e),
        .border = QColor(0x4b5058),
        .separator = QColor(0x2c2f34),
        .scrollHandle = QColor(0x5a6069),
        .selection = QColor(0x2c5c99),
        .selectionText = QColor(0xffffff),
        .rowSelection = QColor(0x263c58),
        .inactiveSelection = QColor(0x3a3e45),
        .focus = QColor(0x6aa9f5),
        .accent = QColor(0x6aa9f5),
        .accentPressed = QColor(0x4d90e2),
        .accentText = QColor(0x10151c),
        .recording = QColor(0xff7068),
        .warning = QColor(0xe5a13a),
    };
    return colours;
}

const ThemeColours& Theme::lightColours() {
    static const ThemeColours colours = {
        .window = QColor(0xeceef1),
        .base = QColor(0xffffff),
        .alternate = QColor(0xf6f7f9),
        .text = QColor(0x1c1f24),
        .mutedText = QColor(0x595f69),
        .disabledText = QColor(0x8f959e),
        .button = QColor(0xfafbfc),
        .buttonHover = QColor(0xffffff),
        .buttonPressed = QColor(0xd5d9df),
        .border = QColor(0xb4bac3),
        .separator = QColor(0xe1e4e8),
        .scrollHandle = QColor(0xa9afb8),
        .selection = QColor(0x2a66b8),
        .selectionText = QColor(0xffffff),
        .rowSelection = QColor(0xd6e4f8),
        .inactiveSelection = QColor(0xd5d9df),
        .focus = QColor(0x2a66b8),
        .accent = QColor(0x2a66b8),
        .accentPressed = QColor(0x1f5198),
        .accentText = QColor(0xffffff),
        .recording = QColor(0xbd2820),
        .warning = QColor(0x8a5600),
    };
    return colours;
}

QPalette Theme::palette(const ThemeColours& colours) {
    QPalette palette(colours.text, colours.button, colours.buttonHover, colours.buttonPressed, colours.border,
                     colours.text, colours.text, colours.base, colours.window);
    palette.setColor(QPalette::AlternateBase, colours.alternate);
    palette.setColor(QPalette::ButtonText, colours.text);
    palette.setColor(QPalette::Midlight, colours.buttonHover);
    palette.setColor(QPalette::Shadow, Qt::black);
    palette.setColor(QPalette::ToolTipBase, colours.base);
    palette.setColor(QPalette::ToolTipText, colours.text);
    palette.setColor(QPalette::PlaceholderText, colours.mutedText);
    palette.setColor(QPalette::Link, colours.focus);
    palette.setColor(QPalette::LinkVisited, colours.focus);
    palette.setColor(QPalette::Highlight, colours.selection);
    palette.setColor(QPalette::HighlightedText, colours.selectionText);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, colours.inactiveSelection);
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, colours.text);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, colours.inactiveSelection);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText}) {
        palette.setColor(QPalette::Disabled, role, colours.disabledText);
    }
    return palette;
}

void Theme::apply(QApplication& application, Choice choice) {
    InUse& state = inUse();
    if (!state.desktopIsDark) {
        const QPalette desktop = QApplication::palette();
        state.desktopIsDark =
            desktop.color(QPalette::Window).lightness() < desktop.color(QPalette::WindowText).lightness();
        QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
        // Menus are words; a symbol in the text colour would vanish on a selected item.
        QApplication::setAttribute(Qt::AA_DontShowIconsInMenus);
    }
    if (choice == Choice::followSystem) {
        followSystem(application);
        return;
    }
    delete state.system;
    use(application, choice == Choice::dark);
}

bool Theme::isDark() {
    return inUse().isDark;
}

const ThemeColours& Theme::colours() {
    return isDark() ? darkColours() : lightColours();
}

void Theme::setHighlighted(QWidget& button, bool highlighted) {
    if (button.property("highlighted").toBool() == highlighted) {
        return;
    }
    button.setProperty("highlighted", highlighted);
    // A style sheet looks at properties only when the widget is polished.
    button.style()->unpolish(&button);
    button.style()->polish(&button);
    button.update();
}

QFont Theme::timeFont(double pointSize) {
    QFont font = fontWithEqualDigits();
    font.setPointSizeF(pointSize);
    return font;
}

QFont Theme::shotClockFont() {
    QFont font = fontWithEqualDigits();
    font.setPixelSize(shotClockPixels);
    font.setWeight(QFont::DemiBold);
    return font;
}

}  // namespace marquill
