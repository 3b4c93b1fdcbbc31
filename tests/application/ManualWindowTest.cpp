#include "application/ManualBrowser.h"
#include "application/ManualWindow.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>

using namespace marquill;

namespace {

QString sourceFolder() {
    return qEnvironmentVariable("MARQUILL_SOURCE_DIR");
}

std::vector<ManualPage> pagesOfTheManual() {
    return manualPages(sourceFolder() + u"/docs/manual"_s).value_or(std::vector<ManualPage>());
}

// What a page's links and pictures point to.
QStringList targetsOf(const QTextDocument& document) {
    QStringList targets;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            if (format.isAnchor()) {
                targets.append(format.anchorHref());
            }
            if (format.isImageFormat()) {
                targets.append(format.toImageFormat().name());
            }
        }
    }
    return targets;
}

}  // namespace

class ManualWindowTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void pagesAreThoseThatTheFirstOneLists();
    void manualIsFoundBesideTheProgramAndInItsSources();
    void placesAreToldWhenThereIsNoManual();
    void everyLinkAndPictureOfEveryPageIsThere();
    void listShowsPagesAndFollowsLinks();
    void linkLeadsToItsHeading();
    void widePicturesFitThePage();
    void findGoesOnFromTheTop();
    void keysOfTheWindow();
};

void ManualWindowTest::pagesAreThoseThatTheFirstOneLists() {
    QTemporaryDir folder;
    const auto write = [&](const QString& name, const QByteArray& text) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    write(u"README.md"_s,
          "# Handbook\n\n| page | tells |\n|---|---|\n| [Two](two.md) | b |\n| [One](one.md) | a |\n"
          "| [Gone](gone.md) | c |\n\nSee [elsewhere](one.md).\n");
    write(u"one.md"_s, "# One\n");
    write(u"two.md"_s, "# Two\n");
    const auto pages = manualPages(folder.path());
    QVERIFY(pages);
    QCOMPARE(*pages, (std::vector<ManualPage>{{u"Handbook"_s, folder.filePath(u"README.md"_s)},
                                              {u"Two"_s, folder.filePath(u"two.md"_s)},
                                              {u"One"_s, folder.filePath(u"one.md"_s)}}));
}

void ManualWindowTest::manualIsFoundBesideTheProgramAndInItsSources() {
    QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkpath(u"share/doc/marquill/manual"_s));
    QVERIFY(QFile::copy(sourceFolder() + u"/docs/manual/README.md"_s,
                        root.filePath(u"share/doc/marquill/manual/README.md"_s)));
    QCOMPARE(manualFolder(root.filePath(u"bin"_s)).value(), root.filePath(u"share/doc/marquill/manual"_s));
    QCOMPARE(manualFolder(sourceFolder() + u"/build/release"_s).value(), sourceFolder() + u"/docs/manual"_s);
}

void ManualWindowTest::placesAreToldWhenThereIsNoManual() {
    QTemporaryDir root;
    const auto folder = manualFolder(root.filePath(u"bin"_s));
    QVERIFY(!folder);
    QVERIFY(folder.error().message.contains(root.filePath(u"share/doc/marquill/manual"_s)));
    QVERIFY(!manualPages(root.path()));
}

void ManualWindowTest::everyLinkAndPictureOfEveryPageIsThere() {
    const std::vector<ManualPage> pages = pagesOfTheManual();
    QVERIFY(pages.size() >= 8);
    ManualBrowser browser;
    int pictures = 0;
    for (const ManualPage& page : pages) {
        browser.setSource(QUrl::fromLocalFile(page.path));
        QVERIFY2(browser.document()->characterCount() > 300, qPrintable(page.path));
        for (const QString& target : targetsOf(*browser.document())) {
            const QUrl url = browser.source().resolved(QUrl(target));
            if (url.isLocalFile()) {
                QVERIFY2(QFile::exists(url.toLocalFile()), qPrintable(page.path + u": "_s + target));
                pictures += target.endsWith(u".png"_s) ? 1 : 0;
            }
        }
    }
    QVERIFY(pictures >= 10);
}

void ManualWindowTest::listShowsPagesAndFollowsLinks() {
    const std::vector<ManualPage> pages = pagesOfTheManual();
    ManualWindow window(pages);
    auto* list = window.findChild<QListWidget*>();
    QCOMPARE(list->count(), static_cast<int>(pages.size()));
    QCOMPARE(window.browser().source(), QUrl::fromLocalFile(pages.front().path));
    list->setCurrentRow(2);
    QCOMPARE(window.browser().source(), QUrl::fromLocalFile(pages[2].path));
    Q_EMIT window.browser().anchorClicked(QUrl(QFileInfo(pages[1].path).fileName()));
    QCOMPARE(window.browser().source(), QUrl::fromLocalFile(pages[1].path));
    QCOMPARE(list->currentRow(), 1);
    window.browser().backward();
    QCOMPARE(list->currentRow(), 2);
}

void ManualWindowTest::linkLeadsToItsHeading() {
    QTemporaryDir folder;
    QFile page(folder.filePath(u"page.md"_s));
    QVERIFY(page.open(QIODevice::WriteOnly));
    page.write("# Title\n\n[down](#the-end-of-it)\n\n" + QByteArray("Text.\n\n").repeated(300) +
               "## The End, of It\n\nLast.\n");
    page.close();
    ManualBrowser browser;
    browser.resize(400, 300);
    browser.show();
    browser.setSource(QUrl::fromLocalFile(page.fileName()));
    QCOMPARE(browser.verticalScrollBar()->value(), 0);
    Q_EMIT browser.anchorClicked(QUrl(u"#the-end-of-it"_s));
    QVERIFY(browser.verticalScrollBar()->value() > 300);
    QCOMPARE(browser.textCursor().block().text(), u"The End, of It"_s);
}

void ManualWindowTest::widePicturesFitThePage() {
    ManualBrowser browser;
    const QString path = sourceFolder() + u"/docs/images/desktop.png"_s;
    const QSize pixels = QImage(path).size();
    QVERIFY(pixels.width() > 1000);
    const auto shown =
        browser.loadResource(QTextDocument::ImageResource, QUrl::fromLocalFile(path)).value<QImage>();
    QVERIFY(shown.deviceIndependentSize().width() <= 700);
    QVERIFY(shown.width() >= 600 * browser.devicePixelRatioF());
    QCOMPARE(shown.height(), qRound(1.0 * shown.width() * pixels.height() / pixels.width()));
}

void ManualWindowTest::findGoesOnFromTheTop() {
    ManualBrowser browser;
    browser.setPlainText(u"take one, take two"_s);
    QVERIFY(browser.findNext(u"take"_s));
    QCOMPARE(browser.textCursor().selectionStart(), 0);
    QVERIFY(browser.findNext(u"take"_s));
    QCOMPARE(browser.textCursor().selectionStart(), 10);
    QVERIFY(browser.findNext(u"take"_s));
    QCOMPARE(browser.textCursor().selectionStart(), 0);
    QVERIFY(!browser.findNext(u"marker"_s));
    QCOMPARE(browser.textCursor().selectionStart(), 0);
}

void ManualWindowTest::keysOfTheWindow() {
    ManualWindow window(pagesOfTheManual());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    auto* find = window.findChild<QLineEdit*>();
    QTest::keyClick(&window.browser(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(find->hasFocus());
    QTest::keyClicks(find, u"marker"_s);
    QTest::keyClick(find, Qt::Key_Return);
    QCOMPARE(window.browser().textCursor().selectedText().toLower(), u"marker"_s);
    QTest::keyClick(find, Qt::Key_Escape);
    QVERIFY(window.browser().hasFocus());
    auto* list = window.findChild<QListWidget*>();
    list->setCurrentRow(3);
    QTest::keyClick(&window.browser(), Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(list->currentRow(), 0);
    QTest::keyClick(&window.browser(), Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(list->currentRow(), 3);
}

QTEST_MAIN(ManualWindowTest)
#include "ManualWindowTest.moc"
