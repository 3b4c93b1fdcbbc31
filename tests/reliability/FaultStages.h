// What the program does with files, one stage for each, as the fault injection runs them: over and over, each
// time with another operation failing.
#pragma once

#include "platform/Literals.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace marquill {

/// What the user, or the log, was told while it lives: warnings that anything logs, and what tell() adds.
class Told {
  public:
    Told();
    ~Told();
    Told(const Told&) = delete;
    Told& operator=(const Told&) = delete;

    static void tell(const QString& text);
    static QStringList texts();
    static void clear();
};

class FaultStage {
  public:
    FaultStage() = default;
    FaultStage(const FaultStage&) = delete;
    FaultStage& operator=(const FaultStage&) = delete;
    virtual ~FaultStage() = default;

    /// Does it; alerts, notices and results go to Told.
    virtual void perform() = 0;
    /// Whether all that perform() was to bring about is on the disk.
    virtual bool isDone() = 0;
    /// What is half, lost, doubled or left lying about, wherever perform() was interrupted; "" when nothing
    /// is.
    virtual QString damage() = 0;
    /// What the user, or the program by itself, does next when nothing fails any more.
    virtual void doAgain() = 0;
};

struct NamedStage {
    QString name;
    std::function<std::unique_ptr<FaultStage>()> make;
};

std::vector<NamedStage> clipTableStages();
std::vector<NamedStage> takeStages();
std::vector<NamedStage> documentStages();
std::vector<NamedStage> folderStages();

}  // namespace marquill
