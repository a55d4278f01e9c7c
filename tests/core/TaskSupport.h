#pragma once

#include <Velmora/QcApplication.h>

#include <QTest>
#include <QThread>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VelmoraTest {

using Record = Velmora::QcTaskDispatcher::MainThreadTaskInfo;

inline std::shared_ptr<Record> MakeRecord(std::function<void()> task, std::string name = std::string())
{
    auto record = std::make_shared<Record>();
    record->task = std::move(task);
    record->name = std::move(name);
    return record;
}

inline Velmora::QcApplication *TheApplication()
{
    return qobject_cast<Velmora::QcApplication *>(QCoreApplication::instance());
}

/// The thread of the application's dispatcher, which nothing hands out: it is the one that drops a replaced merge record.
inline QThread *DispatcherThread()
{
    const auto seen = std::make_shared<std::atomic<QThread *>>(nullptr);
    std::shared_ptr<int> witness(new int(0), [seen](const int *number) {
        delete number;
        seen->store(QThread::currentThread());
    });
    auto replaced = MakeRecord([witness] {});
    witness.reset();
    TheApplication()->MergeTaskToMainThread(replaced, "DispatcherThread");
    replaced.reset();
    TheApplication()->MergeTaskToMainThread(MakeRecord({}), "DispatcherThread");
    return QTest::qWaitFor([&seen] { return seen->load() != nullptr; }) ? seen->load() : nullptr;
}

/// Which of the records given to it are alive.
class Records
{
public:
    void Watch(const std::shared_ptr<Record> &record) { m_records.push_back(record); }
    int Alive() const
    {
        int alive = 0;
        for (const auto &record : m_records)
            alive += record.expired() ? 0 : 1;
        return alive;
    }

private:
    std::vector<std::weak_ptr<Record>> m_records;
};

} // namespace VelmoraTest
