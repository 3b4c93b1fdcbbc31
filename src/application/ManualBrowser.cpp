#include "application/ManualBrowser.h"

#include "application/ManualPages.h"
#include "platform/Literals.h"
#include "platform/Log.h"
#include "platform/Theme.h"

#include <QDesktopServices>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

namespace marquill {

namespace {
constexpr int pictureWidth = 680;
constexpr int margin = 16;
constexpr int cellPadding = 5;

void drawThinLines(QTextTable& table) {
    QTextTableFormat format = table.format();
    format.setBorderCollapse(true);
    format.setBorder(1);
    format.setBorderBrush(Theme::colours().border);
    format.setCellPadding(cellPadding);
    format.setCellSpacing(0);
    format.setBottomMargin(margin);
    table.setFormat(format);
}
}  // namespace

ManualBrowser::ManualBrowser(QWidget* parent) : QTextBrowser(parent) {
    setOpenLinks(false);
    document()->setDocumentMargin(margin);
    connect(this, &QTextBrowser::anchorClicked, this, &ManualBrowser::follow);
}

QVariant ManualBrowser::loadResource(int type, const QUrl& name) {
    QVariant resource = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource) {
        return resource;
    }
    QImage picture;
    if (!picture.loadFromData(resource.toByteArray())) {
        return resource;
    }
    const int widest = qRound(pictureWidth * devicePixelRatioF());
    if (picture.width() > widest) {
        picture =
            picture.convertToFormat(QImage::Format_RGB32).scaledToWidth(widest, Qt::SmoothTransformation);
        picture.setDevicePixelRatio(devicePixelRatioF());
    }
    return picture;
}

bool ManualBrowser::findNext(const QString& text) {
    if (text.isEmpty() || find(text)) {
        return !text.isEmpty();
    }
    const QTextCursor before = textCursor();
    moveCursor(QTextCursor::Start);
    if (find(text)) {
        return true;
    }
    setTextCursor(before);
    return false;
}

void ManualBrowser::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
    QTextBrowser::doSetSource(url, type);
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(frame)) {
            drawThinLines(*table);
        }
    }
    if (url.hasFragment()) {
        showHeading(url.fragment());
    }
}

void ManualBrowser::follow(const QUrl& link) {
    if (!link.isRelative() && !link.isLocalFile()) {
        if (!QDesktopServices::openUrl(link)) {
            qCWarning(logApplication) << "no program opens" << link;
        }
        return;
    }
    QUrl page = source().resolved(link);
    if (link.path().isEmpty()) {
        page = source();
        page.setFragment(link.fragment());
    }
    setSource(page);
}

void ManualBrowser::showHeading(const QString& anchor) {
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0 && anchorOfHeading(block.text()) == anchor) {
            setTextCursor(QTextCursor(block));
            verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect().top() - margin);
            return;
        }
    }
}

}  // namespace marquill
