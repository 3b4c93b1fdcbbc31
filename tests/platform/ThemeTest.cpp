#include "platform/Literals.h"
#include "platform/SystemColourScheme.h"
#include "platform/Theme.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusServer>
#include <QFontMetricsF>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <optional>

using namespace marquill;
using namespace std::chrono_literals;

namespace {

// Relative luminance and contrast as the Web Content Accessibility Guidelines 2.1 define them.
double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& two) {
    const auto [low, high] = std::minmax({luminance(one), luminance(two)});
    return (high + 0.05) / (low + 0.05);
}

QImage grabbed(QWidget& widget) {
    widget.ensurePolished();
    return widget.grab().toImage();
}

// The portal's face, as the desktop's own process shows it.
class FakePortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

  public:
    uint scheme = 0;
    bool wrapsTwice = true;

  public Q_SLOTS:
    QDBusVariant Read(const QString& group, const QString& key) {
        if (group != u"org.freedesktop.appearance"_s || key != u"color-scheme"_s) {
            return QDBusVariant(QString());
        }
        const QDBusVariant value(scheme);
        return wrapsTwice ? QDBusVariant(QVariant::fromValue(value)) : value;
    }
};

// A portal at the other end of a private connection, answering from a thread of its own as another process
// would.
class PortalConnection {
  public:
    PortalConnection() {
        _portal.moveToThread(&_thread);
        _thread.start();
        QObject::connect(&_server, &QDBusServer::newConnection, &_server, [this](QDBusConnection connection) {
            _ours = connection;
            _ours->registerObject(u"/org/freedesktop/portal/desktop"_s, &_portal,
                                  QDBusConnection::ExportAllSlots);
        });
        _theirs = QDBusConnection::connectToPeer(_server.address(), u"portal"_s);
    }
    ~PortalConnection() {
        QDBusConnection::disconnectFromPeer(u"portal"_s);
        _thread.quit();
        _thread.wait();
    }
    Q_DISABLE_COPY_MOVE(PortalConnection)

    bool isReady() const { return _ours.has_value(); }
    FakePortal& portal() { return _portal; }
    QDBusConnection bus() const { return *_theirs; }

    void announce(const QString& group, const QString& key, uint value) {
        QDBusMessage signal = QDBusMessage::createSignal(
            u"/org/freedesktop/portal/desktop"_s, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        _ours->send(signal);
    }

  private:
    QThread _thread;
    FakePortal _portal;
    QDBusServer _server{u"unix:tmpdir=/tmp"_s};
    std::optional<QDBusConnection> _ours;
    std::optional<QDBusConnection> _theirs;
};

}  // namespace

class ThemeTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void contrastIsMeasuredAsTheGuidelinesDo();
    void textStandsOutFromItsBackground_data();
    void textStandsOutFromItsBackground();
    void focusRingStandsOut_data();
    void focusRingStandsOut();
    void paletteCarriesTheColours();
    void applyChangesPaletteAndStyleSheet();
    void styleSheetLeavesNoNameUnfilled();
    void anUnsetPreferenceFollowsTheDesktopsPalette();
    void focusIsVisibleAndMovesNothing();
    void highlightedButtonLooksDifferentWithoutColour();
    void digitsOfTheTimeFontAreEquallyWide();
    void shotClockIsReadableFromTwoMetres();
    void portalTellsTheScheme_data();
    void portalTellsTheScheme();
    void portalIsFollowedLive();
    void otherSettingsOfThePortalAreIgnored();
    void withoutABusThereIsNoPreference();
    void dialogsButtonsAreWordsAlone();
};

// The examples that the guidelines' own tools are checked with.
void ThemeTest::contrastIsMeasuredAsTheGuidelinesDo() {
    QCOMPARE(contrast(Qt::black, Qt::white), 21.0);
    QVERIFY(std::abs(contrast(QColor(0x777777), Qt::white) - 4.48) < 0.005);
    QVERIFY(std::abs(contrast(QColor(0xff0000), Qt::white) - 4.00) < 0.005);
}

void ThemeTest::textStandsOutFromItsBackground_data() {
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("background");
    for (const auto* theme : {&Theme::darkColours(), &Theme::lightColours()}) {
        const ThemeColours& c = *theme;
        const char* name = theme == &Theme::darkColours() ? "dark" : "light";
        const std::pair<const char*, QColor> texts[] = {
            {"text", c.text}, {"muted", c.mutedText}, {"recording", c.recording}, {"warning", c.warning}};
        const std::pair<const char*, QColor> grounds[] = {
            {"window", c.window}, {"base", c.base}, {"alternate", c.alternate}};
        for (const auto& [textName, text] : texts) {
            for (const auto& [groundName, ground] : grounds) {
                QTest::addRow("%s: %s on %s", name, textName, groundName) << text << ground;
            }
        }
        QTest::addRow("%s: button", name) << c.text << c.button;
        QTest::addRow("%s: button under the pointer", name) << c.text << c.buttonHover;
        QTest::addRow("%s: pressed button", name) << c.text << c.buttonPressed;
        QTest::addRow("%s: highlighted button", name) << c.accentText << c.accent;
        QTest::addRow("%s: highlighted and pressed button", name) << c.accentText << c.accentPressed;
        QTest::addRow("%s: selection", name) << c.selectionText << c.selection;
        QTest::addRow("%s: selected row", name) << c.text << c.rowSelection;
        QTest::addRow("%s: offline in a selected row", name) << c.mutedText << c.rowSelection;
        QTest::addRow("%s: inactive selection", name) << c.text << c.inactiveSelection;
        QTest::addRow("%s: link", name) << Theme::palette(c).color(QPalette::Link) << c.window;
        QTest::addRow("%s: hint", name) << Theme::palette(c).color(QPalette::PlaceholderText) << c.base;
        QTest::addRow("%s: tool tip", name) << Theme::palette(c).color(QPalette::ToolTipText)
                                            << Theme::palette(c).color(QPalette::ToolTipBase);
    }
}

void ThemeTest::textStandsOutFromItsBackground() {
    QFETCH(const QColor, text);
    QFETCH(const QColor, background);
    const double ratio = contrast(text, background);
    QVERIFY2(ratio >= 4.5, qPrintable(u"%1 on %2: %3"_s.arg(text.name(), background.name()).arg(ratio)));
}

void ThemeTest::focusRingStandsOut_data() {
    QTest::addColumn<QColor>("focus");
    QTest::addColumn<QColor>("background");
    for (const auto* theme : {&Theme::darkColours(), &Theme::lightColours()}) {
        const char* name = theme == &Theme::darkColours() ? "dark" : "light";
        QTest::addRow("%s window", name) << theme->focus << theme->window;
        QTest::addRow("%s field", name) << theme->focus << theme->base;
        QTest::addRow("%s button", name) << theme->focus << theme->button;
    }
}

void ThemeTest::focusRingStandsOut() {
    QFETCH(const QColor, focus);
    QFETCH(const QColor, background);
    QVERIFY(contrast(focus, background) >= 3.0);
}

void ThemeTest::paletteCarriesTheColours() {
    const ThemeColours& colours = Theme::darkColours();
    const QPalette palette = Theme::palette(colours);
    QCOMPARE(palette.color(QPalette::Active, QPalette::Window), colours.window);
    QCOMPARE(palette.color(QPalette::Active, QPalette::Base), colours.base);
    QCOMPARE(palette.color(QPalette::Active, QPalette::AlternateBase), colours.alternate);
    QCOMPARE(palette.color(QPalette::Active, QPalette::Highlight), colours.selection);
    QCOMPARE(palette.color(QPalette::Inactive, QPalette::Highlight), colours.inactiveSelection);
    QCOMPARE(palette.color(QPalette::Inactive, QPalette::HighlightedText), colours.text);
    QCOMPARE(palette.color(QPalette::Disabled, QPalette::ButtonText), colours.disabledText);
}

void ThemeTest::applyChangesPaletteAndStyleSheet() {
    QLineEdit field;
    Theme::apply(*qApp, Theme::Choice::dark);
    QVERIFY(Theme::isDark());
    QCOMPARE(QApplication::palette().color(QPalette::Window), Theme::darkColours().window);
    const QColor dark = grabbed(field).pixelColor(field.width() / 2, 4);
    Theme::apply(*qApp, Theme::Choice::light);
    QVERIFY(!Theme::isDark());
    QCOMPARE(QApplication::palette().color(QPalette::Window), Theme::lightColours().window);
    QCOMPARE(dark, Theme::darkColours().base);
    QCOMPARE(grabbed(field).pixelColor(field.width() / 2, 4), Theme::lightColours().base);
}

void ThemeTest::styleSheetLeavesNoNameUnfilled() {
    Theme::apply(*qApp, Theme::Choice::dark);
    QVERIFY(qApp->styleSheet().contains(Theme::darkColours().accent.name()));
    QVERIFY(!QRegularExpression(u"\\$\\{(?!name\\})"_s).match(qApp->styleSheet()).hasMatch());
}

// The offscreen platform has a light palette and the tests have no desktop portal that could prefer anything
// else.
void ThemeTest::anUnsetPreferenceFollowsTheDesktopsPalette() {
    if (SystemColourScheme().scheme() != ColourScheme::noPreference) {
        QSKIP("the desktop that this test runs in has a preference");
    }
    Theme::apply(*qApp, Theme::Choice::dark);
    Theme::apply(*qApp, Theme::Choice::followSystem);
    QVERIFY(!Theme::isDark());
}

void ThemeTest::focusIsVisibleAndMovesNothing() {
    for (const auto choice : {Theme::Choice::dark, Theme::Choice::light}) {
        Theme::apply(*qApp, choice);
        QWidget window;
        auto* button = new QPushButton(u"Take"_s, &window);
        auto* other = new QPushButton(u"Other"_s, &window);
        other->move(120, 0);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        other->setFocus();
        const QSize without = button->sizeHint();
        const QColor edgeWithout = grabbed(*button).pixelColor(button->width() / 2, 1);
        button->setFocus();
        QCOMPARE(button->sizeHint(), without);
        const QColor edgeWith = grabbed(*button).pixelColor(button->width() / 2, 1);
        QCOMPARE(edgeWith, Theme::colours().focus);
        QVERIFY(contrast(edgeWith, edgeWithout) >= 3.0);
    }
}

// Told in grey: the fill is inverted against the text of its neighbours.
void ThemeTest::highlightedButtonLooksDifferentWithoutColour() {
    for (const auto choice : {Theme::Choice::dark, Theme::Choice::light}) {
        Theme::apply(*qApp, choice);
        QPushButton button;
        const QSize size = button.sizeHint();
        const auto fill = [&] { return grabbed(button).pixelColor(8, button.height() / 2); };
        const QColor normal = fill();
        Theme::setHighlighted(button, true);
        QCOMPARE(button.property("highlighted").toBool(), true);
        QCOMPARE(fill(), Theme::colours().accent);
        QVERIFY(contrast(fill(), normal) >= 3.0);
        QCOMPARE(button.sizeHint(), size);
        Theme::setHighlighted(button, false);
        QCOMPARE(fill(), normal);
    }
}

void ThemeTest::digitsOfTheTimeFontAreEquallyWide() {
    for (const QFont& font : {Theme::timeFont(9), Theme::timeFont(13.5), Theme::shotClockFont()}) {
        const QFontMetricsF metrics(font);
        QVERIFY(metrics.horizontalAdvance(u"00:00:00"_s) > 0);
        QCOMPARE(metrics.horizontalAdvance(u"11:11:11"_s), metrics.horizontalAdvance(u"00:00:00"_s));
        QCOMPARE(metrics.horizontalAdvance(u"17:41:29"_s), metrics.horizontalAdvance(u"88:88:88"_s));
    }
    QCOMPARE(Theme::timeFont(13.5).pointSizeF(), 13.5);
}

void ThemeTest::shotClockIsReadableFromTwoMetres() {
    const QFontMetricsF metrics(Theme::shotClockFont());
    QVERIFY2(metrics.tightBoundingRect(u"0"_s).height() >= 40, "digits lower than 40 pixels");
}

void ThemeTest::portalTellsTheScheme_data() {
    QTest::addColumn<uint>("number");
    QTest::addColumn<bool>("wrapsTwice");
    QTest::addColumn<ColourScheme>("scheme");
    QTest::newRow("no preference") << 0U << true << ColourScheme::noPreference;
    QTest::newRow("dark") << 1U << true << ColourScheme::dark;
    QTest::newRow("light") << 2U << true << ColourScheme::light;
    QTest::newRow("wrapped once") << 1U << false << ColourScheme::dark;
    QTest::newRow("number of a later version") << 3U << true << ColourScheme::noPreference;
}

void ThemeTest::portalTellsTheScheme() {
    QFETCH(const uint, number);
    QFETCH(const bool, wrapsTwice);
    PortalConnection connection;
    QTRY_VERIFY(connection.isReady());
    connection.portal().scheme = number;
    connection.portal().wrapsTwice = wrapsTwice;
    // Longer than the program waits: a busy machine may take its time to answer.
    const SystemColourScheme system(connection.bus(), QString(), 20s);
    QTEST(system.scheme(), "scheme");
}

void ThemeTest::portalIsFollowedLive() {
    PortalConnection connection;
    QTRY_VERIFY(connection.isReady());
    SystemColourScheme system(connection.bus(), QString(), 20s);
    int changes = 0;
    system.schemeHasChanged = [&] { ++changes; };
    connection.announce(u"org.freedesktop.appearance"_s, u"color-scheme"_s, 1);
    QTRY_COMPARE(system.scheme(), ColourScheme::dark);
    connection.announce(u"org.freedesktop.appearance"_s, u"color-scheme"_s, 2);
    QTRY_COMPARE(system.scheme(), ColourScheme::light);
    QCOMPARE(changes, 2);
}

void ThemeTest::otherSettingsOfThePortalAreIgnored() {
    PortalConnection connection;
    QTRY_VERIFY(connection.isReady());
    SystemColourScheme system(connection.bus(), QString(), 20s);
    int changes = 0;
    system.schemeHasChanged = [&] { ++changes; };
    connection.announce(u"org.freedesktop.appearance"_s, u"accent-color"_s, 1);
    connection.announce(u"org.example.appearance"_s, u"color-scheme"_s, 1);
    connection.announce(u"org.freedesktop.appearance"_s, u"color-scheme"_s, 2);
    QTRY_COMPARE(system.scheme(), ColourScheme::light);
    QCOMPARE(changes, 1);
}

void ThemeTest::withoutABusThereIsNoPreference() {
    const SystemColourScheme system(QDBusConnection(u"no such connection"_s), QString());
    QCOMPARE(system.scheme(), ColourScheme::noPreference);
}

void ThemeTest::dialogsButtonsAreWordsAlone() {
    Theme::apply(*qApp, Theme::Choice::dark);
    QMessageBox box(QMessageBox::Question, {}, u"Quit?"_s, QMessageBox::Ok | QMessageBox::Cancel);
    box.ensurePolished();
    for (const QAbstractButton* button : box.buttons()) {
        QVERIFY2(button->icon().isNull(), qPrintable(button->text()));
    }
}

QTEST_MAIN(ThemeTest)
#include "ThemeTest.moc"
