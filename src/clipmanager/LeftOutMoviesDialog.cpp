#include "clipmanager/LeftOutMoviesDialog.h"

#include "platform/Dialogs.h"
#include "platform/EmptyHint.h"
#include "platform/Files.h"
#include "platform/TableView.h"
#include "platform/WindowDescription.h"

#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>

namespace marquill {

namespace {

constexpr int nameWidth = 220;
/// An alert with more lines than this would not fit on a screen.
constexpr std::size_t mostErrorsShown = 5;
/// Telling the progress of every movie would cost more than reading it.
constexpr int moviesPerReport = 16;

QStandardItem* cell(const QString& text) {
    auto* item = new QStandardItem(text);
    item->setEditable(false);
    item->setToolTip(text);
    return item;
}

QString countText(std::size_t count) {
    return count == 1 ? LeftOutMoviesDialog::tr("1 movie") : LeftOutMoviesDialog::tr("%1 movies").arg(count);
}

}  // namespace

Result<std::unique_ptr<LeftOutMoviesDialog>> LeftOutMoviesDialog::create(const QString& folder,
                                                                         QWidget* parent) {
    WindowDescription::registerWidget<TableView>(u"TableView"_s);
    Result<std::unique_ptr<QWidget>> loaded = WindowDescription::load(u"LeftOutMovies"_s);
    if (!loaded) {
        return std::unexpected(loaded.error());
    }
    if (!qobject_cast<QDialog*>(loaded->get())) {
        return failure(ErrorCode::malformed, tr("the window of the left-out movies is no dialog"));
    }
    std::unique_ptr<QDialog> window(static_cast<QDialog*>(loaded->release()));
    window->setParent(parent, Qt::Dialog);
    std::unique_ptr<LeftOutMoviesDialog> dialog(new LeftOutMoviesDialog(folder, std::move(window)));
    if (const Result<void> connected = dialog->connectOutlets(); !connected) {
        return std::unexpected(connected.error());
    }
    dialog->wire();
    dialog->read();
    return dialog;
}

LeftOutMoviesDialog::LeftOutMoviesDialog(const QString& folder, std::unique_ptr<QDialog> window)
    : _folder(folder), _window(std::move(window)) {}

LeftOutMoviesDialog::~LeftOutMoviesDialog() = default;

Result<void> LeftOutMoviesDialog::connectOutlets() {
    Outlets outlets(*_window);
    outlets.connect(_movieTable, u"_movieTable"_s);
    outlets.connect(_movieCount, u"_movieCount"_s);
    outlets.connect(_progressInd, u"_progressInd"_s);
    outlets.connect(_listButton, u"_listButton"_s);
    outlets.connect(_importButton, u"_importButton"_s);
    outlets.connect(_closeButton, u"_closeButton"_s);
    return outlets.check();
}

void LeftOutMoviesDialog::wire() {
    _model.setHorizontalHeaderLabels({tr("Movie"), tr("Reason")});
    _movieTable->setModel(&_model);
    _movieTable->setColumnWidth(0, nameWidth);
    _movieTable->horizontalHeader()->setStretchLastSection(true);
    _hint = new EmptyHint(*_movieTable, {});
    connect(_movieTable->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &LeftOutMoviesDialog::update);
    connect(_listButton, &QPushButton::clicked, this, &LeftOutMoviesDialog::giveUserData);
    connect(_importButton, &QPushButton::clicked, this, &LeftOutMoviesDialog::importAsPlaceholders);
    connect(_closeButton, &QPushButton::clicked, _window.get(), &QDialog::reject);
    connect(_window.get(), &QDialog::finished, this, [this] { _work.cancel(); });
}

void LeftOutMoviesDialog::run() {
    _window->exec();
}

void LeftOutMoviesDialog::read() {
    _work.start([this, folder = _folder](const BackgroundWork::Post& post) {
        const QStringList names = LeftOutMovies::moviesOfFolder(folder);
        const auto total = static_cast<int>(names.size());
        for (int done = 0; done < total && post.isWanted(); ++done) {
            if (const auto movie = LeftOutMovies::examine(joinPath(folder, names.at(done)))) {
                post([this, movie] { addMovie(*movie); });
            }
            if (done % moviesPerReport == 0) {
                post([this, done, total] { showProgress(done, total); });
            }
        }
        post([this] { workDone({}); });
    });
    update();
}

void LeftOutMoviesDialog::addMovie(const LeftOutMovie& movie) {
    _movies.push_back(movie);
    _model.appendRow({cell(movie.name()), cell(movie.reason)});
    update();
}

void LeftOutMoviesDialog::removeMovie(const QString& path) {
    const auto found = std::ranges::find(_movies, path, &LeftOutMovie::path);
    if (found != _movies.end()) {
        const auto row = static_cast<int>(found - _movies.begin());
        _movies.erase(found);
        _model.removeRow(row);
    }
}

void LeftOutMoviesDialog::giveUserData() {
    const QStringList paths = selectedPaths(&LeftOutMovie::canBeListed);
    _work.start([this, paths](const BackgroundWork::Post& post) {
        const auto total = static_cast<int>(paths.size());
        for (int done = 0; done < total && post.isWanted(); ++done) {
            const QString& path = paths.at(done);
            const Result<void> given = LeftOutMovies::giveUserData(path);
            post([this, path, given, done, total] {
                showProgress(done + 1, total);
                if (!given) {
                    _errors.push_back(given.error());
                    return;
                }
                removeMovie(path);
                if (listMovies) {
                    listMovies({path});
                }
            });
        }
        post([this] { workDone(tr("Could not list one or more Movies")); });
    });
    showProgress(0, static_cast<int>(paths.size()));
    update();
}

void LeftOutMoviesDialog::importAsPlaceholders() {
    if (!importMovies) {
        return;
    }
    ImportedMovies imported = importMovies(selectedPaths(&LeftOutMovie::canBeImported));
    for (const ClipInfo& clip : imported.clips) {
        removeMovie(clip.clipPath().value_or(QString()));
    }
    _errors = std::move(imported.errors);
    update();
    showErrors(tr("Could not load one or more Clips"));
}

// The last result of the work: nothing comes after it.
void LeftOutMoviesDialog::workDone(const QString& titleOfFailure) {
    _work.cancel();
    update();
    showErrors(titleOfFailure);
}

void LeftOutMoviesDialog::showErrors(const QString& title) {
    const std::vector<Error> errors = std::exchange(_errors, {});
    if (errors.empty()) {
        return;
    }
    QStringList lines;
    for (std::size_t index = 0; index < std::min(errors.size(), mostErrorsShown); ++index) {
        lines.append(errors[index].description());
    }
    if (errors.size() > mostErrorsShown) {
        lines.append(tr("And %1 more.").arg(errors.size() - mostErrorsShown));
    }
    Dialogs::current().alert(_window.get(),
                             {.title = title, .text = lines.join(u"\n\n"_s), .buttons = {tr("Ok")}});
}

void LeftOutMoviesDialog::showProgress(int done, int total) {
    _progressInd->setRange(0, total);
    _progressInd->setValue(done);
}

// Makes counts, hints and buttons fit the movies, the selection, and whether work is under way.
void LeftOutMoviesDialog::update() {
    const bool busy = isBusy();
    _progressInd->setVisible(busy);
    _movieCount->setText(countText(_movies.size()));
    _listButton->setEnabled(!busy && !selectedPaths(&LeftOutMovie::canBeListed).isEmpty());
    _importButton->setEnabled(!busy && !selectedPaths(&LeftOutMovie::canBeImported).isEmpty());
    if (busy) {
        _hint->setText(tr("Reading movies…"));
    } else if (!folderExists(_folder)) {
        _hint->setText(tr("This folder does not exist or is offline"));
    } else {
        _hint->setText(tr("No movie of this folder is left out"));
    }
}

template <class Allows>
QStringList LeftOutMoviesDialog::selectedPaths(Allows allows) const {
    QList<int> rows;
    for (const QModelIndex& index : _movieTable->selectionModel()->selectedRows()) {
        rows.append(index.row());
    }
    std::ranges::sort(rows);
    QStringList paths;
    for (const int row : rows) {
        const LeftOutMovie& movie = _movies[static_cast<std::size_t>(row)];
        if ((movie.*allows)()) {
            paths.append(movie.path);
        }
    }
    return paths;
}

}  // namespace marquill
