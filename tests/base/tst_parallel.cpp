#include "base/parallel.h"

#include <QTest>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>

using Tasks = std::vector<std::function<void()>>;

class TestParallel : public QObject {
    Q_OBJECT
private slots:
    void runsEachOnce();
    void progressRises();
    void progressStops();
    void exceptionPasses();
    void throwingProgress();
};

void TestParallel::runsEachOnce()
{
    QVERIFY(runTasks({}));
    constexpr int count = 500;
    std::vector<std::atomic<int>> runs(count);
    Tasks tasks;
    for (int i = 0; i < count; ++i)
        tasks.emplace_back([&runs, i] { ++runs[size_t(i)]; });
    QVERIFY(runTasks(tasks));
    for (const std::atomic<int>& run : runs)
        QCOMPARE(run.load(), 1);
}

void TestParallel::progressRises()
{
    const auto slow = [] { std::this_thread::sleep_for(std::chrono::milliseconds(30)); };
    const auto caller = std::this_thread::get_id();
    std::vector<double> shares;
    bool here = true;
    QVERIFY(runTasks(Tasks(8, slow), [&](double share) {
        here = here && std::this_thread::get_id() == caller;
        shares.push_back(share);
        return true;
    }));
    QVERIFY(here);
    QVERIFY(shares.size() > 1);
    QVERIFY(std::is_sorted(shares.begin(), shares.end()));
    QVERIFY(shares.front() >= 0.0 && shares.front() < 1.0);
    QCOMPARE(shares.back(), 1.0);
}

void TestParallel::progressStops()
{
    std::atomic<int> begun{0};
    std::atomic<int> ended{0};
    const auto slow = [&] {
        ++begun;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        ++ended;
    };
    QVERIFY(!runTasks(Tasks(2000, slow), [](double) { return false; }));
    QVERIFY(begun < 2000);
    QCOMPARE(begun.load(), ended.load()); // those under way were waited for
}

void TestParallel::exceptionPasses()
{
    std::atomic<int> begun{0};
    Tasks tasks(2000, [&] {
        ++begun;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    });
    tasks[3] = [] { throw std::runtime_error("third"); };
    try {
        runTasks(tasks);
        QFAIL("nothing came through");
    } catch (const std::runtime_error& what) {
        QCOMPARE(QByteArray(what.what()), QByteArray("third"));
    }
    QVERIFY(begun < 1999);
}

void TestParallel::throwingProgress()
{
    const auto slow = [] { std::this_thread::sleep_for(std::chrono::milliseconds(60)); };
    const auto progress = [](double) -> bool { throw std::logic_error("progress"); };
    QVERIFY_EXCEPTION_THROWN(runTasks(Tasks(4, slow), progress), std::logic_error);
}

QTEST_APPLESS_MAIN(TestParallel)
#include "tst_parallel.moc"
