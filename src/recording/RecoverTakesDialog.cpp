#include "recording/RecoverTakesDialog.h"

#include "movie/QTHelper.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/WindowDescription.h"
#include "recording/TakeWriter.h"

#include <QDialog>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>

namespace marquill {

namespace {

enum Column { nameColumn, sceneColumn, startColumn, durationColumn, markersColumn };

QString nameOf(const TakeRecord& take) {
    return take.name.isEmpty() ? TakeWriter::untitled : take.name;
}

QString discardQuestion(std::size_t count) {
    return count == 1 ? RecoverTakesDialog::tr("Discard 1 take?")
                      : RecoverTakesDialog::tr("Discard %1 takes?").arg(count);
}

QTreeWidgetItem* itemFor(const TakeRecord& take) {
    auto* item = new QTreeWidgetItem;
    item->setText(nameColumn, nameOf(take));
    item->setText(sceneColumn, take.scene);
    item->setText(startColumn, localDateText(take.start));
    item->setText(durationColumn, QTHelper::timeCodeStringHHMMSS(static_cast<qint64>(take.elapsed)));
    item->setText(markersColumn, QString::number(take.markers.size()));
    item->setTextAlignment(durationColumn, Qt::AlignRight | Qt::AlignVCenter);
    item->setTextAlignment(markersColumn, Qt::AlignRight | Qt::AlignVCenter);
    item->setToolTip(nameColumn, RecoverTakesDialog::tr("Recorded into %1").arg(take.folder));
    return item;
}

}  // namespace

Result<std::unique_ptr<RecoverTakesDialog>> RecoverTakesDialog::create(const QString& journalFolder,
                                                                       QWidget* parent) {
    std::unique_ptr<RecoverTakesDialog> dialog(new RecoverTakesDialog(journalFolder));
    if (Result<void> loaded = dialog->load(parent); !loaded) {
        return std::unexpected(loaded.error());
    }
    dialog->reload();
    return dialog;
}

RecoverTakesDialog::~RecoverTakesDialog() {
    delete _window;
}

Result<void> RecoverTakesDialog::load(QWidget* parent) {
    Result<std::unique_ptr<QWidget>> loaded = WindowDescription::load(u"RecoverTakesDialog"_s);
    if (!loaded) {
        return std::unexpected(loaded.error());
    }
    if (!qobject_cast<QDialog*>(loaded->get())) {
        return failure(ErrorCode::malformed, tr("The window description holds no dialog."));
    }
    _window = qobject_cast<QDialog*>(loaded->release());
    _window->setParent(parent, Qt::Dialog);
    Outlets outlets(*_window);
    outlets.connect(_takeList, u"_takeList"_s);
    outlets.connect(_recoverButton, u"_recoverButton"_s);
    outlets.connect(_discardButton, u"_discardButton"_s);
    outlets.connect(_closeButton, u"_closeButton"_s);
    if (Result<void> complete = outlets.check(); !complete) {
        return complete;
    }
    // The name has what the other columns leave; none of their titles is longer than the narrowest.
    constexpr int narrowest = 72;
    _takeList->header()->setMinimumSectionSize(narrowest);
    _takeList->header()->setStretchLastSection(false);
    _takeList->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    _takeList->header()->setSectionResizeMode(nameColumn, QHeaderView::Stretch);
    connect(_takeList, &QTreeWidget::itemSelectionChanged, this, &RecoverTakesDialog::selectionChanged);
    connect(_recoverButton, &QPushButton::clicked, this, &RecoverTakesDialog::recoverSelected);
    connect(_discardButton, &QPushButton::clicked, this, &RecoverTakesDialog::discardSelected);
    connect(_closeButton, &QPushButton::clicked, _window, &QDialog::close);
    return {};
}

void RecoverTakesDialog::show() {
    reload();
    _window->show();
    _window->raise();
    _window->activateWindow();
    _takeList->setFocus();
}

void RecoverTakesDialog::reload() {
    _takes = TakeRecovery::keptTakes(_journalFolder);
    showTakes();
}

// All are selected at first: most often there is one, and whoever opens the dialog wants it back.
void RecoverTakesDialog::showTakes() {
    _takeList->clear();
    for (const TakeRecovery::KeptTake& kept : _takes) {
        _takeList->addTopLevelItem(itemFor(kept.take));
    }
    _takeList->selectAll();
    selectionChanged();
}

void RecoverTakesDialog::selectionChanged() {
    const bool any = !_takeList->selectedItems().isEmpty();
    _recoverButton->setEnabled(any);
    _discardButton->setEnabled(any);
}

std::vector<TakeRecovery::KeptTake> RecoverTakesDialog::selectedTakes() const {
    std::vector<TakeRecovery::KeptTake> selected;
    for (int row = 0; row < _takeList->topLevelItemCount(); ++row) {
        if (_takeList->topLevelItem(row)->isSelected()) {
            selected.push_back(_takes[static_cast<std::size_t>(row)]);
        }
    }
    return selected;
}

void RecoverTakesDialog::recoverSelected() {
    const std::vector<TakeRecovery::KeptTake> selected = selectedTakes();
    if (selected.empty()) {
        return;
    }
    const std::optional<QString> folder = Dialogs::current().chooseFolder(
        _window,
        {.title = tr("Save Recovered Takes"), .startFolder = selected.front().take.folder, .suffixes = {}});
    if (!folder) {
        return;
    }
    std::optional<Error> firstError;
    for (const TakeRecovery::KeptTake& kept : selected) {
        if (const auto recovered = TakeRecovery::recover(kept.journal, *folder)) {
            Q_EMIT takeRecovered(*recovered);
        } else if (!firstError) {
            firstError = recovered.error();
        }
    }
    reload();
    Q_EMIT takesChanged();
    if (firstError) {
        Dialogs::current().alert(_window, {.title = tr("Couldn't recover all takes"),
                                           .text = firstError->description() + u'\n' +
                                                   tr("What was not recovered is still in the list.")});
    }
}

void RecoverTakesDialog::discardSelected() {
    const std::vector<TakeRecovery::KeptTake> selected = selectedTakes();
    const int answer = Dialogs::current().alert(
        _window, {.title = discardQuestion(selected.size()),
                  .text = tr("Their start times, durations and markers are lost. This cannot be undone."),
                  .buttons = {tr("Cancel"), tr("Discard")}});
    if (answer != 1) {
        return;
    }
    std::optional<Error> firstError;
    for (const TakeRecovery::KeptTake& kept : selected) {
        if (const Result<void> discarded = TakeRecovery::discard(kept.journal); !discarded) {
            firstError = discarded.error();
        }
    }
    reload();
    Q_EMIT takesChanged();
    if (firstError) {
        Dialogs::current().alert(
            _window, {.title = tr("Couldn't discard all takes"), .text = firstError->description()});
    }
}

}  // namespace marquill
