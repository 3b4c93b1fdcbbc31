#include "application/ManualBrowser.h"

#include "application/ManualPages.h"
#include "platform/Literals.h"
#include "platform/Log.h"
#include "platform/Theme.h"

#include <QDesktopServices>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextList>
#include <QTextTable>

namespace marquill {

namespace {
constexpr int pictureWidth = 680;
constexpr int margin = 16;
constexpr int cellPadding = 5;
constexpr int indent = 24;
constexpr int aboveHeading = 22;
constexpr int aboveListItem = 3;
constexpr int belowBlock = 9;

void drawThinLines(QTextTable& table) {
    QTextTableFormat format = table.format();
    format.setBorderCollapse(true);
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(Theme::colours().border);
    format.setCellPadding(cellPadding);
    format.setCellSpacing(0);
    format.setTopMargin(aboveListItem);
    format.setBottomMargin(margin);
    table.setFormat(format);
}

// Of a program's input and output.
bool isCode(const QTextBlock& block) {
    return block.blockFormat().hasProperty(QTextFormat::BlockCodeLanguage);
}

// Room between the blocks of a page, which Markdown does not ask for: headings go with what follows them.
QTextBlockFormat formatInPage(const QTextBlock& block) {
    QTextBlockFormat format = block.blockFormat();
    if (format.headingLevel() > 0) {
        format.setTopMargin(block.position() == 0 ? 0 : aboveHeading);
        format.setBottomMargin(belowBlock);
    } else if (block.textList()) {
        format.setTopMargin(aboveListItem);
        format.setBottomMargin(block.next().textList() ? 0 : belowBlock);
    } else if (isCode(block)) {
        format.setLeftMargin(indent);
        format.setBottomMargin(isCode(block.next()) ? 0 : belowBlock);
    } else {
        format.setBottomMargin(belowBlock);
    }
    return format;
}

void setBlocksApart(QTextDocument& document) {
    document.setIndentWidth(indent);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextCursor cursor(block);
        if (!cursor.currentTable()) {
            cursor.setBlockFormat(formatInPage(block));
        }
    }
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
    setBlocksApart(*document());
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
