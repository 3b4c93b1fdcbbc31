// The dialog "Recover Takes": the takes whose clips could not be written, and what becomes of them. It stands
// in nobody's way: takes are recorded while it is open. Owned by the application; main thread.
#pragma once

#include "platform/Error.h"
#include "recording/TakeRecovery.h"

#include <QDialog>
#include <QObject>
#include <QPointer>

#include <memory>

class QPushButton;
class QTreeWidget;

namespace marquill {

class RecoverTakesDialog : public QObject {
    Q_OBJECT

  public:
    /// The dialog over `parent`, with the takes whose journals stand in `journalFolder`; an error when its
    /// description cannot be loaded. It is not shown yet.
    static Result<std::unique_ptr<RecoverTakesDialog>> create(const QString& journalFolder, QWidget* parent);
    ~RecoverTakesDialog() override;

    QDialog* window() const { return _window; }
    /// Shows it in front, with the takes that there are now.
    void show();
    const std::vector<TakeRecovery::KeptTake>& takes() const { return _takes; }

  Q_SIGNALS:
    /// The clip was written, and its journal removed.
    void takeRecovered(const marquill::TakeRecovery::RecoveredTake& take);
    /// A take was recovered or discarded.
    void takesChanged();

  private:
    explicit RecoverTakesDialog(QString journalFolder) : _journalFolder(std::move(journalFolder)) {}
    Result<void> load(QWidget* parent);
    void reload();
    void showTakes();
    void selectionChanged();
    std::vector<TakeRecovery::KeptTake> selectedTakes() const;
    void recoverSelected();
    void discardSelected();

    QString _journalFolder;
    std::vector<TakeRecovery::KeptTake> _takes;  // in the order of the rows
    QPointer<QDialog> _window;                   // goes with its parent
    QTreeWidget* _takeList = nullptr;
    QPushButton* _recoverButton = nullptr;
    QPushButton* _discardButton = nullptr;
    QPushButton* _closeButton = nullptr;
};

}  // namespace marquill
