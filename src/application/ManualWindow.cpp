#include "application/ManualWindow.h"

#include "application/ManualBrowser.h"
#include "platform/Literals.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>

#include <algorithm>

namespace marquill {

namespace {
constexpr QSize startSize(1000, 760);
constexpr int listWidth = 220;
constexpr int findWidth = 220;
constexpr int spacing = 8;
}  // namespace

ManualWindow::ManualWindow(const std::vector<ManualPage>& pages)
    : _pages(pages),
      _list(new QListWidget),
      _browser(new ManualBrowser),
      _back(new QPushButton(tr("Back"))),
      _forward(new QPushButton(tr("Forward"))),
      _find(new QLineEdit) {
    setObjectName(u"_manual"_s);
    setWindowTitle(tr("Marquill Manual"));
    auto* splitter = new QSplitter;
    splitter->addWidget(_list);
    splitter->addWidget(_browser);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({listWidth, startSize.width() - listWidth});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(newHeader());
    layout->addWidget(splitter, 1);
    setUpPages();
    resize(startSize);
    _browser->setFocus();
}

QWidget* ManualWindow::newHeader() {
    auto* header = new QWidget;
    auto* layout = new QHBoxLayout(header);
    layout->setContentsMargins(spacing, spacing, spacing, spacing);
    _back->setToolTip(tr("To the page before (Alt+Left)"));
    _forward->setToolTip(tr("To the page after (Alt+Right)"));
    _find->setPlaceholderText(tr("Find on this page"));
    _find->setAccessibleName(tr("Find on this page"));
    _find->setClearButtonEnabled(true);
    _find->setFixedWidth(findWidth);
    layout->addWidget(_back);
    layout->addWidget(_forward);
    layout->addStretch();
    layout->addWidget(_find);
    _back->setEnabled(false);
    _forward->setEnabled(false);
    connect(_back, &QPushButton::clicked, _browser, &QTextBrowser::backward);
    connect(_forward, &QPushButton::clicked, _browser, &QTextBrowser::forward);
    connect(_browser, &QTextBrowser::backwardAvailable, _back, &QWidget::setEnabled);
    connect(_browser, &QTextBrowser::forwardAvailable, _forward, &QWidget::setEnabled);
    connect(_find, &QLineEdit::returnPressed, this, &ManualWindow::find);
    return header;
}

void ManualWindow::setUpPages() {
    _list->setAccessibleName(tr("Pages"));
    _browser->setAccessibleName(tr("Page"));
    for (const ManualPage& page : _pages) {
        _list->addItem(page.title);
    }
    connect(_list, &QListWidget::currentRowChanged, this, &ManualWindow::showSelectedPage);
    connect(_browser, &QTextBrowser::sourceChanged, this, &ManualWindow::selectShownPage);
    _list->setCurrentRow(0);
}

void ManualWindow::showSelectedPage() {
    const int row = _list->currentRow();
    if (row >= 0) {
        _browser->setSource(QUrl::fromLocalFile(_pages[static_cast<std::size_t>(row)].path));
    }
}

// After a link, or one of the buttons. A page that is not in the list leaves none selected.
void ManualWindow::selectShownPage(const QUrl& page) {
    const QString path = page.toLocalFile();
    const auto found = std::ranges::find(_pages, path, &ManualPage::path);
    const QSignalBlocker quiet(_list);
    _list->setCurrentRow(found == _pages.end() ? -1 : static_cast<int>(found - _pages.begin()));
}

void ManualWindow::find() {
    const bool found = _browser->findNext(_find->text());
    _find->setToolTip(found || _find->text().isEmpty() ? QString() : tr("The text is not on this page."));
}

// The keys that belong to this window while it has the keyboard, though a command of the menu bar has them
// too.
bool ManualWindow::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Find)) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void ManualWindow::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Find)) {
        _find->setFocus(Qt::ShortcutFocusReason);
        _find->selectAll();
    } else if (event->matches(QKeySequence::Back)) {
        _browser->backward();
    } else if (event->matches(QKeySequence::Forward)) {
        _browser->forward();
    } else if (event->matches(QKeySequence::FindNext)) {
        find();
    } else if (event->key() == Qt::Key_Escape && _find->hasFocus()) {
        _browser->setFocus();
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace marquill
