#include "platform/ParallelWork.h"

#include <QThreadPool>

#include <algorithm>
#include <atomic>

namespace marquill {

namespace {

/// Below this many, starting threads costs more than they spare.
constexpr qsizetype leastPerThread = 32;
/// How many a thread takes at a time: enough not to wait for the others, few enough that all end together.
constexpr qsizetype atATime = 8;

class ParallelWork {
  public:
    ParallelWork(qsizetype count, const std::function<void(qsizetype)>& work) : _count(count), _work(work) {}

    void help() {
        run([] { return true; });
    }

    bool lead(const Progress& progress) {
        return run([&] {
            _isWanted = goesOn(progress, std::min(_next.load(), _count), _count);
            return _isWanted.load();
        });
    }

  private:
    template <class GoOn>
    bool run(GoOn goOn) {
        while (goOn() && _isWanted) {
            const qsizetype start = _next.fetch_add(atATime);
            if (start >= _count) {
                return true;
            }
            for (qsizetype index = start; index < std::min(start + atATime, _count); ++index) {
                _work(index);
            }
        }
        return false;
    }

    const qsizetype _count;
    const std::function<void(qsizetype)>& _work;
    std::atomic<qsizetype> _next = 0;
    std::atomic<bool> _isWanted = true;
};

}  // namespace

bool forEachInParallel(qsizetype count, const std::function<void(qsizetype)>& work,
                       const Progress& progress) {
    ParallelWork parallel(count, work);
    const auto threads = std::min<qsizetype>(count / leastPerThread, QThread::idealThreadCount());
    QThreadPool helpers;
    helpers.setMaxThreadCount(static_cast<int>(std::max<qsizetype>(threads, 1)));
    for (qsizetype helper = 1; helper < threads; ++helper) {
        helpers.start([&parallel] { parallel.help(); });
    }
    const bool isDone = parallel.lead(progress);
    helpers.waitForDone();
    return isDone;
}

}  // namespace marquill
