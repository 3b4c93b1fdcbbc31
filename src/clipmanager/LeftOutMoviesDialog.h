// The window "Left-Out Movies": which movies of the shown folder are in no list, why, and the two ways to
// bring them in. It reads and writes movies on a thread of its own. Main thread.
#pragma once

#include "clipmanager/MovieImport.h"
#include "clipstore/LeftOutMovies.h"
#include "platform/BackgroundWork.h"

#include <QDialog>
#include <QStandardItemModel>

#include <functional>
#include <memory>

class QLabel;
class QProgressBar;
class QPushButton;

namespace marquill {

class EmptyHint;
class TableView;

class LeftOutMoviesDialog : public QObject {
    Q_OBJECT

  public:
    /// Makes the window for `folder`, above the window `parent`, and begins to read the folder. Fails when
    /// the window description does.
    static Result<std::unique_ptr<LeftOutMoviesDialog>> create(const QString& folder, QWidget* parent);
    ~LeftOutMoviesDialog() override;

    /// Shows the window and returns when it is closed. A movie that is just being given user data is then
    /// finished, though listMovies is no longer called for it.
    void run();
    QDialog* window() const { return _window.get(); }
    /// Whether movies are being read or written.
    bool isBusy() const { return _work.isRunning(); }

    // What the owner does; set both before the window is shown.

    /// The movies at `paths` have user data since now: they are clips to be shown.
    std::function<void(const QStringList& paths)> listMovies;
    /// Imports the movies at `paths` as placeholders and tells what came of it; failures are shown here.
    std::function<ImportedMovies(const QStringList& paths)> importMovies;

  private:
    LeftOutMoviesDialog(const QString& folder, std::unique_ptr<QDialog> window);

    Result<void> connectOutlets();
    void wire();
    void read();
    void addMovie(const LeftOutMovie& movie);
    void removeMovie(const QString& path);
    void giveUserData();
    void importAsPlaceholders();
    void workDone(const QString& titleOfFailure);
    void showErrors(const QString& title);
    void showProgress(int done, int total);
    void update();
    template <class Allows>
    QStringList selectedPaths(Allows allows) const;

    QString _folder;
    std::unique_ptr<QDialog> _window;
    QStandardItemModel _model;
    std::vector<LeftOutMovie> _movies;  // by row
    std::vector<Error> _errors;         // since the last alert
    TableView* _movieTable = nullptr;
    QLabel* _movieCount = nullptr;
    QProgressBar* _progressInd = nullptr;
    QPushButton* _listButton = nullptr;
    QPushButton* _importButton = nullptr;
    QPushButton* _closeButton = nullptr;
    EmptyHint* _hint = nullptr;
    BackgroundWork _work;
};

}  // namespace marquill
