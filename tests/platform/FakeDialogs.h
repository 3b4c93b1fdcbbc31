// Dialogs that record what was asked and answer from a script, instead of showing a window.
#pragma once

#include "platform/Dialogs.h"

#include <QList>

namespace marquill {

class FakeDialogs : public Dialogs {
  public:
    FakeDialogs() { install(this); }
    FakeDialogs(const FakeDialogs&) = delete;
    FakeDialogs& operator=(const FakeDialogs&) = delete;
    ~FakeDialogs() override { install(nullptr); }

    QList<Alert> alerts;        ///< those shown, in order
    QList<FileChoice> choices;  ///< the choosers shown, in order
    QList<int> answers;         ///< buttons pressed in the coming alerts; the first one when there is no more
    QStringList
        chosen;  ///< what the coming choosers give, those of one file or folder in turn; empty: cancelled

    int alert(QWidget*, const Alert& alert) override {
        alerts.append(alert);
        return answers.isEmpty() ? 0 : answers.takeFirst();
    }
    QStringList chooseFolders(QWidget*, const FileChoice& choice) override {
        choices.append(choice);
        return chosen;
    }
    std::optional<QString> chooseFolder(QWidget*, const FileChoice& choice) override {
        return oneChosen(choice);
    }
    std::optional<QString> chooseFile(QWidget*, const FileChoice& choice) override {
        return oneChosen(choice);
    }
    QStringList chooseFiles(QWidget*, const FileChoice& choice) override {
        choices.append(choice);
        return chosen;
    }
    std::optional<QString> chooseFileToSave(QWidget*, const FileChoice& choice) override {
        choices.append(choice);
        return chosen.isEmpty() ? std::nullopt : std::optional(chosen.first());
    }

  private:
    std::optional<QString> oneChosen(const FileChoice& choice) {
        choices.append(choice);
        return chosen.isEmpty() ? std::nullopt : std::optional(chosen.takeFirst());
    }
};

}  // namespace marquill
