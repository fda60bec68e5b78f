// Messages that wait, and the message system that all agents use.
//
// The queue is a map of times, with a list of messages for each. Main loops call `update` in every
// round, and most of the time nothing waits. So the number of times is also kept in an atomic: with
// an empty queue a call costs one load and takes no lock.

#include "libraries/corelib/source/diagnostics/DiagnosticsMessages.h"
#include "libraries/corelib/source/messaging/Ims.h"
#include "libraries/corelib/source/messaging/ImsAgent.h"
#include "libraries/corelib/source/messaging/Logger.h"
#include "libraries/corelib/source/messaging/MessagingMessages.h"
#include "libraries/corelib/source/time/DateTime.h"

#include <new>
#include <utility>

namespace TarvikCorelib {

constinit std::atomic<Ims*> Ims::DefaultMessageSystem{nullptr};

bool Ims::queue(const ImsMessage& message, unsigned long long time) {
    return enqueue(nullptr, message, time);
}

bool Ims::queue(ImsAgent& target, const ImsMessage& message, unsigned long long time) {
    return enqueue(&target, message, time);
}

bool Ims::enqueue(ImsAgent* target, const ImsMessage& message, unsigned long long time) {
    const ThreadLockGuard held(delayedLock);
    std::list<TimeDelayMsg>& waiting = delayed[time];
    waiting.push_back({target, message});
    delayedCount = delayed.size();
    // The copy takes over the parameter, and whether it is to be destroyed.
    waiting.back().message.deleteParameter = std::exchange(message.deleteParameter, false);
    message.parameter = nullptr;
    return true;
}

void Ims::update() {
    if (delayedCount == 0) return;
    const TimeType now = DateTime::getCurrentTime();
    const ThreadLockGuard held(delayedLock);
    if (updating) return;
    updating = true;
    try {
        while (!delayed.empty() && delayed.begin()->first <= now)
            deliverFirst();
    } catch (...) {
        updating = false;
        throw;
    }
    updating = false;
}

// A handler may queue messages for this time, which go out too, and for an earlier one. A message
// is taken out before it is delivered, so that it is gone even if its handler throws.
void Ims::deliverFirst() {
    const auto due = delayed.begin();
    try {
        while (!due->second.empty()) {
            std::list<TimeDelayMsg> entry;
            entry.splice(entry.begin(), due->second, due->second.begin());
            deliver(entry.front());
        }
    } catch (...) {
        if (due->second.empty()) erase(due);
        throw;
    }
    erase(due);
}

void Ims::deliver(const TimeDelayMsg& entry) {
    if (entry.target == nullptr) {
        send(entry.message);
        return;
    }
    try {
        entry.target->handleMessage(entry.message);
    } catch (...) {
        // The sender has gone on long ago, so there is nobody to report to.
    }
}

void Ims::erase(Delayed::iterator due) {
    delayed.erase(due);
    delayedCount = delayed.size();
}

Ims& Ims::getDefaultMessageSystem() {
    static Ims* const system = [] {
        try {
            return std::make_unique<Ims>().release();
        } catch (const std::bad_alloc&) {
            throw Ims_OutOfMemory(
                messages::outOfMemory,
                Logger::formatSource(messages::imsFile, messages::outOfMemoryLine));
        }
    }();
    DefaultMessageSystem = system;
    return *system;
}

void Ims::updateDefault() {
    getDefaultMessageSystem().update();
}

bool Ims::sendDefault(const ImsMessage& message) {
    return getDefaultMessageSystem().send(message);
}

bool Ims::queueDefault(const ImsMessage& message, unsigned long long time) {
    return getDefaultMessageSystem().queue(message, time);
}

bool Ims::queueDefault(ImsAgent& target, const ImsMessage& message, unsigned long long time) {
    return getDefaultMessageSystem().queue(target, message, time);
}

}  // namespace TarvikCorelib
