#include "libraries/corelib/source/messaging/Ims.h"

#include "libraries/corelib/source/match/GlobMatcher.h"
#include "libraries/corelib/source/messaging/ImsAgent.h"
#include "libraries/corelib/source/messaging/Logger.h"
#include "libraries/corelib/source/messaging/MessagingMessages.h"

#include <algorithm>

namespace TarvikCorelib {

namespace {

bool hasGlobs(const ImsMessage& pattern) {
    const auto isGlob = [](const std::string& word) {
        return word.find_first_of("*?") != std::string::npos;
    };
    return isGlob(pattern.generalType) || isGlob(pattern.groupType) || isGlob(pattern.messageType);
}

// Most patterns have no globs, and comparing words costs a fraction.
bool matchesWord(std::string_view word, const std::string& glob, bool withGlobs) {
    return glob.empty() || word == glob || (withGlobs && GlobMatcher::match(word, glob));
}

bool matchesWords(const ImsMessage& pattern, bool withGlobs, std::string_view generalType,
                  std::string_view groupType, std::string_view messageType) {
    return matchesWord(generalType, pattern.generalType, withGlobs) &&
           matchesWord(groupType, pattern.groupType, withGlobs) &&
           matchesWord(messageType, pattern.messageType, withGlobs);
}

bool acceptsSource(const ImsMessage& pattern, const ImsAgent* source) {
    return pattern.source == nullptr || pattern.source == source;
}

bool accepts(const Ims::MessageHook& hook, const ImsMessage& message) {
    return matchesWords(hook.pattern, hook.withGlobs, message.generalType, message.groupType,
                        message.messageType) &&
           acceptsSource(hook.pattern, message.source);
}

std::size_t indexOf(HookType type) {
    switch (type) {
    case HookTypeFirst: return 0;
    case HookTypeNormal: return 1;
    default: return 2;
    }
}

bool isBefore(const std::shared_ptr<Ims::MessageHook>& a,
              const std::shared_ptr<Ims::MessageHook>& b) {
    const int order = a->pattern.compare(b->pattern);
    return order < 0 || (order == 0 && a->id < b->id);
}

}  // namespace

Ims::Ims() {
    registers.fill(std::make_shared<const Register>());
}

Ims::~Ims() = default;

bool Ims::send(const ImsMessage& message) {
    int status = ImsAgent::MsgIgnored;
    Register spent;
    for (std::size_t type = 0; type < registers.size() && status != ImsAgent::MsgConsumed; ++type)
        sendToHooks(message, *registerOf(type), spent, status);
    for (const std::shared_ptr<MessageHook>& hook : spent)
        removeHook(*hook);
    return status != ImsAgent::MsgIgnored;
}

// A handler may set and remove any hooks, its own too. The register keeps the hooks alive
// meanwhile.
void Ims::sendToHooks(const ImsMessage& message, const Register& hooksOfType, Register& spent,
                      int& status) {
    for (const std::shared_ptr<MessageHook>& hook : hooksOfType) {
        if (status == ImsAgent::MsgConsumed) return;
        if (hook->removed || !accepts(*hook, message)) continue;
        const int answer = hook->receiver->hookMessage(hook->id, message);
        if (answer == ImsAgent::MsgHandled || answer == ImsAgent::MsgConsumed) status = answer;
        if (hook->onlyOnce && status != ImsAgent::MsgIgnored) spent.push_back(hook);
    }
}

bool Ims::hasHookFor(std::string_view generalType, std::string_view groupType,
                     std::string_view messageType, const ImsAgent* source) {
    for (std::size_t type = 0; type < registers.size(); ++type) {
        const Snapshot hooksOfType = registerOf(type);
        const auto wants = [&](const std::shared_ptr<MessageHook>& hook) {
            return !hook->removed &&
                   matchesWords(hook->pattern, hook->withGlobs, generalType, groupType,
                                messageType) &&
                   acceptsSource(hook->pattern, source);
        };
        if (std::any_of(hooksOfType->begin(), hooksOfType->end(), wants)) return true;
    }
    return false;
}

bool Ims::messageMatchesHook(const ImsMessage& message, const ImsMessage& pattern) {
    return matchesWords(pattern, hasGlobs(pattern), message.generalType, message.groupType,
                        message.messageType) &&
           acceptsSource(pattern, message.source);
}

unsigned long long Ims::setMessageHook(ImsAgent& receiver, bool onlyOnce,
                                       const std::string& generalGlob, const std::string& groupGlob,
                                       const std::string& messageGlob, ImsAgent* source,
                                       HookType type) {
    const auto hook = std::make_shared<MessageHook>();
    hook->receiver = &receiver;
    hook->pattern = ImsMessage(generalGlob, groupGlob, messageGlob);
    hook->pattern.source = source;
    hook->withGlobs = hasGlobs(hook->pattern);
    hook->onlyOnce = onlyOnce;

    const ThreadLockGuard held(hooksLock);
    if (isDuplicate(*hook))
        throw Hook_Duplicate(messages::hookDuplicate.view(),
                             Logger::formatSource(messages::imsFile, messages::hookDuplicateLine));
    hook->id = hooks.empty() ? 1 : hooks.rbegin()->first + 1;
    Snapshot& current = registers[indexOf(type)];
    auto changed = std::make_shared<Register>(*current);
    changed->insert(std::upper_bound(changed->begin(), changed->end(), hook, isBefore), hook);
    hooks.emplace(hook->id, hook);
    current = std::move(changed);
    return hook->id;
}

bool Ims::removeMessageHook(unsigned long long id) {
    const ThreadLockGuard held(hooksLock);
    const auto found = hooks.find(id);
    if (found == hooks.end()) return false;
    // Kept alive here: whoever hears the records of the lock may remove it, too.
    const std::shared_ptr<MessageHook> hook = found->second;
    return removeHook(*hook);
}

// The very hook: its id may be that of another one by now.
bool Ims::removeHook(MessageHook& hook) {
    const ThreadLockGuard held(hooksLock);
    if (hook.removed) return false;
    hook.removed = true;
    hooks.erase(hook.id);
    // From here on the register alone keeps the hook alive.
    Snapshot* const current = findHooksReg(hook);
    auto changed = std::make_shared<Register>(**current);
    std::erase_if(*changed, [&](const auto& entry) { return entry.get() == &hook; });
    *current = std::move(changed);
    return true;
}

bool Ims::haveIdenticalHook(const MessageHook& hook) {
    const ThreadLockGuard held(hooksLock);
    return isDuplicate(hook);
}

bool Ims::isDuplicate(const MessageHook& hook) const {
    return std::any_of(hooks.begin(), hooks.end(), [&](const auto& entry) {
        return entry.second->receiver == hook.receiver &&
               entry.second->pattern.compare(hook.pattern) == 0;
    });
}

// One pattern may be in several registers, so the hook itself is looked for.
Ims::Snapshot* Ims::findHooksReg(const MessageHook& hook) {
    const auto holds = [&](const Snapshot& hooksOfType) {
        return std::any_of(hooksOfType->begin(), hooksOfType->end(),
                           [&](const auto& entry) { return entry.get() == &hook; });
    };
    return std::find_if(registers.begin(), registers.end(), holds);
}

Ims::Snapshot Ims::registerOf(std::size_t type) {
    const ThreadLockGuard held(hooksLock);
    return registers[type];
}

}  // namespace TarvikCorelib
