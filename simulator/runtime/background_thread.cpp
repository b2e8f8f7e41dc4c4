#include "runtime/background_thread.hpp"

#include "runtime/autorelease.hpp"
#include "runtime/clock.hpp"

#include <memory>
#include <semaphore>
#include <thread>

extern "C" {
/// Makes a thread that Foundation did not start known to it, and forgets it again.
unsigned char GSRegisterCurrentThread();
void GSUnregisterCurrentThread();
}

namespace sim::background {
namespace {

/// One thread and the baton that it and the main thread pass to and fro: who does not hold it waits.
struct Worker {
    explicit Worker(std::function<void()> body) : work(std::move(body)) {}

    std::function<void()> work;
    std::binary_semaphore toWorker{0};
    std::binary_semaphore toMain{0};
    bool finished = false;
    std::thread thread;
};

thread_local Worker *current = nullptr;

void Body(Worker &worker) {
    worker.toWorker.acquire();
    current = &worker;
    GSRegisterCurrentThread();
    {
        const AutoreleasePool pool;
        worker.work();
        worker.work = nullptr;
    }
    GSUnregisterCurrentThread();
    worker.finished = true;
    worker.toMain.release();
}

/// Lets the worker run until it finishes, sleeps or waits for the main thread. A worker that sleeps when the process
/// ends is just left behind: it waits for a baton that never comes and keeps nobody.
void HandOver(Worker *worker) {
    worker->toWorker.release();
    worker->toMain.acquire();
    if (worker->finished) {
        worker->thread.join();
        delete worker;
    }
}

/// Hands the baton to the main thread; it comes back after so many seconds, and after the work that is done then.
void GoOnAfter(double seconds, std::function<void()> work) {
    Worker *self = current;
    clock::Schedule(seconds, [self, work = std::move(work)] {
        work();
        HandOver(self);
    });
    self->toMain.release();
    self->toWorker.acquire();
}

} // namespace

void Run(std::function<void()> work) {
    // Owned by its thread, whose end HandOver sees.
    auto *worker = new Worker(std::move(work));
    worker->thread = std::thread([worker] { Body(*worker); });
    HandOver(worker);
}

bool IsCurrent() {
    return current != nullptr;
}

void WaitForMain(std::function<void()> work) {
    GoOnAfter(0, std::move(work));
}

void Sleep(double seconds) {
    GoOnAfter(seconds, [] {});
}

} // namespace sim::background
