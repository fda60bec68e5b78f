// Hooks, sends, queued messages and updates in any order, from within handlers too, on a message
// system and on a plain model of it. Both must call the same handlers in the same order.

#include "libraries/corelib/source/match/GlobMatcher.h"
#include "libraries/corelib/source/messaging/Ims.h"
#include "libraries/corelib/source/messaging/ImsAgent.h"

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <vector>

#include "fuzz/Feed.h"

namespace {

using TarvikCorelib::HookType;
using TarvikCorelib::Ims;
using TarvikCorelib::ImsAgent;
using TarvikCorelib::ImsMessage;
using Id = unsigned long long;

constexpr unsigned now = 5;  // The clock is far beyond it.

// Has its hooks and what waits in the order in which they came, and searches anew for each step.
class Model {
public:
    Id setMessageHook(ImsAgent& receiver, bool onlyOnce, const std::string& general,
                      const std::string& group, const std::string& type, ImsAgent* source,
                      HookType order) {
        Hook hook{1, &receiver, {general, group, type}, onlyOnce, order < 0 ? 2 : order};
        hook.pattern.source = source;
        for (const auto& other : hooks) {
            if (other->receiver == &receiver && other->pattern.compare(hook.pattern) == 0) throw 1;
            hook.id = std::max(hook.id, other->id + 1);
        }
        hooks.push_back(std::make_shared<Hook>(hook));
        return hook.id;
    }
    bool removeMessageHook(Id id) {
        return std::erase_if(hooks, [id](const auto& hook) { return hook->id == id; }) > 0;
    }
    bool send(const ImsMessage& message) {
        int status = 1;
        Hooks spent;
        for (const int order : {0, 1, 2}) {
            Hooks toCall = hooks;
            std::sort(toCall.begin(), toCall.end(), [](const auto& a, const auto& b) {
                const int words = a->pattern.compare(b->pattern);
                return words != 0 ? words < 0 : a->id < b->id;
            });
            for (const auto& hook : toCall) {
                const bool lives = std::find(hooks.begin(), hooks.end(), hook) != hooks.end();
                if (status == 3 || !lives || hook->order != order || !hook->takes(message))
                    continue;
                const int answer = hook->receiver->hookMessage(hook->id, message);
                if (answer == 2 || answer == 3) status = answer;
                if (hook->onlyOnce && status != 1) spent.push_back(hook);
            }
        }
        for (const auto& hook : spent)
            std::erase(hooks, hook);
        return status != 1;
    }
    bool queue(const ImsMessage& message, Id time) {
        waiting.emplace_back(time, [this, message] { send(message); });
        return true;
    }
    bool queue(ImsAgent& target, const ImsMessage& message, Id time) {
        waiting.emplace_back(time, [&target, message] {
            try {
                target.handleMessage(message);
            } catch (...) {  // Dropped, as in the product.
            }
        });
        return true;
    }
    // All of one time go out before the next time is looked for.
    void update() {
        if (updating) return;
        const std::unique_ptr<bool, void (*)(bool*)> end(&updating, [](bool* on) { *on = false; });
        updating = true;
        for (Id time = 0; !waiting.empty();) {
            auto due = std::find_if(waiting.begin(), waiting.end(),
                                    [time](const auto& entry) { return entry.first == time; });
            if (due == waiting.end())
                due = std::min_element(
                    waiting.begin(), waiting.end(),
                    [](const auto& a, const auto& b) { return a.first < b.first; });
            if (due->first > now) return;
            time = due->first;
            const auto deliver = due->second;
            waiting.erase(due);
            deliver();
        }
    }

private:
    struct Hook {
        Id id;
        ImsAgent* receiver;
        ImsMessage pattern;
        bool onlyOnce;
        int order;

        bool takes(const ImsMessage& message) const {
            const std::string& glob = pattern.messageType;
            return (glob.empty() || TarvikCorelib::GlobMatcher::match(message.messageType, glob)) &&
                   (pattern.source == nullptr || pattern.source == message.source);
        }
    };
    using Hooks = std::vector<std::shared_ptr<Hook>>;

    Hooks hooks;
    std::vector<std::pair<Id, std::function<void()>>> waiting;
    bool updating = false;
};

// Does on a system what an input says, and keeps what comes of it. Handlers go on with the input.
template <class System>
class Script {
public:
    explicit Script(fuzz::Feed feed) : feed(feed) {}

    std::vector<Id> run() {
        while (!feed.isEmpty() && steps < 200) {
            try {
                step();
            } catch (...) {
                outcome.push_back(99);
            }
        }
        return outcome;
    }

private:
    class Agent : public ImsAgent {
    public:
        explicit Agent(Script& script) : ImsAgent("agent"), script(script) {}
        int handleMessage(const ImsMessage& message) override { return hookMessage(0, message); }
        int hookMessage(Id id, const ImsMessage& message) override {
            const auto number = static_cast<Id>(this - script.agents.data());
            script.outcome.insert(script.outcome.end(), {number, id, message.messageType.size()});
            const unsigned answer = script.upTo(64);
            if (answer >= 48) script.step();
            if (answer < 8) throw 1;
            return static_cast<int>(answer % 5);
        }

    private:
        Script& script;
    };

    void step() {
        if (++steps > 200) return;
        const unsigned what = upTo(7);
        ImsAgent& agent = agents[upTo(3)];
        ImsAgent* const source =
            std::array<ImsAgent*, 3>{nullptr, &agents.front(), &agents.back()}[upTo(3)];
        ImsMessage message("", "", std::array{"a", "ab", "", "b"}[upTo(4)]);
        message.source = source;
        const Id time = upTo(now + 2);
        switch (what) {
        case 0: return system.update();
        case 1: return note(system.removeMessageHook(time));
        case 2: return note(system.send(message));
        case 3: return note(system.queue(message, time > now ? ~0ULL : time));
        case 4: return note(system.queue(agent, message, time > now ? ~0ULL : time));
        default:
            const char* const glob = std::array{"", "a", "*", "a*", "?", "b"}[upTo(6)];
            return note(system.setMessageHook(agent, what == 6, "", "", glob, source,
                                              HookType{static_cast<int>(upTo(4)) - 1}));
        }
    }
    unsigned upTo(unsigned limit) { return feed.byte() % limit; }
    void note(Id result) { outcome.push_back(result); }

    fuzz::Feed feed;
    std::vector<Id> outcome;
    int steps = 0;
    std::array<Agent, 3> agents{Agent(*this), Agent(*this), Agent(*this)};
    System system;
};

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::Feed feed(data, size);
    fuzz::check(Script<Ims>(feed).run() == Script<Model>(feed).run());
    return 0;
}
