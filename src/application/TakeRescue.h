// Brings back what an earlier run of the program could not finish: at launch it recovers takes from their
// journals and tells of them in the main window, and it shows the dialog for those that found no place. Owned
// by the application, between launch and quit; main thread.
#pragma once

#include "platform/BackgroundWork.h"
#include "recording/TakeRecovery.h"

#include <QObject>

#include <functional>
#include <memory>

namespace marquill {

class RecoverTakesDialog;

class TakeRescue : public QObject {
    Q_OBJECT

  public:
    /// Journals stand in `journalFolder`; the recorder and the Clip Manager are there already.
    explicit TakeRescue(QString journalFolder);
    ~TakeRescue() override;

    /// Where the program keeps the journals of its takes.
    static QString journalFolder();

    /// Recovers what earlier runs left behind, without keeping anybody waiting, and tells what came of it.
    void recoverAtLaunch();
    /// Whether takes wait for a place to be written to.
    bool hasKeptTakes() const { return _hasKeptTakes; }
    /// Shows the dialog with those takes.
    void recoverTakes();
    RecoverTakesDialog* dialog() const { return _dialog.get(); }

    /// "Recovered 1 take: Harbour#03 in Day 1"; of more than three, the first three by name.
    static QString textForRecovered(const std::vector<TakeRecovery::RecoveredTake>& takes);

  Q_SIGNALS:
    void keptTakesChanged();

  private:
    void launched(const TakeRecovery::Outcome& outcome);
    void takeRecovered(const TakeRecovery::RecoveredTake& take);
    void setHasKeptTakes(bool hasKeptTakes);
    void showTakes(const std::vector<TakeRecovery::RecoveredTake>& takes);
    void selectWhenRead(const QString& folder, const QStringList& names);
    static void showNotice(const QString& text, const QString& buttonText,
                           const std::function<void()>& buttonPressed);

    QString _journalFolder;
    bool _hasKeptTakes = false;
    std::unique_ptr<RecoverTakesDialog> _dialog;
    QMetaObject::Connection _whenRead;  // selects the takes that are to be shown, once their folder is read
    BackgroundWork _work;
};

}  // namespace marquill
