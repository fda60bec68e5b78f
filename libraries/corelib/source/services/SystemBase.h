/// The agent that answers for the system: facts about it, and the values of the file registry.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"
#include "libraries/corelib/source/messaging/ImsAgent.h"
#include "libraries/corelib/source/services/SystemQueryParam.h"

#include <string>

namespace TarvikCorelib {

/// Answers the messages ("system", "query") and ("system", "set") with a `SystemQueryParam`, which
/// `ConfAgent` sends. It keeps no values: each request goes to `SystemTools` or `FileRegistry`.
///
/// A request is refused (`MsgHandled`) if its type or its system key is unknown, and with status
/// `NoAccess` if it has no place for a value. Any other one is consumed, and `status` says what
/// came of it. For values of the registry it is
///
///     Good        the value was read or written
///     NotFound    there is no such key, or it cannot be made
///     OtherType   the key has no value of this type
///     NoAccess    not locked in time, not readable or not writable
///
/// Quirk: a message to set a value of an unknown type is consumed, too.
///
/// Any thread may ask; the work is done on its stack. `FileRegistry` says what becomes of a key,
/// and how long a request may wait.
///
///     const SystemBase services;
///     std::string name;
///     SystemQueryParam param("os", SystemQueryParam::SystemText, &name, 0);
///     Ims::sendDefault(ImsMessage("system", "query", "", &param));  // true
///     param.status;                                                 // 1: `Good`; name is "linux"
class SystemBase : public ImsAgent {
public:
    /// Contains the exception of the hook that could not be set.
    using SystemBase_FailedToSetIMSHook =
        NamedException<SystemBase, "SystemBase_FailedToSetIMSHook">;

    /// Listens from now on until it is destroyed.
    SystemBase();
    SystemBase(const SystemBase&) = delete;
    SystemBase& operator=(const SystemBase&) = delete;
    ~SystemBase() override;

    /// Ignores whatever is no query or set of the system, and parameters of other classes.
    int handleMessage(const ImsMessage& message) override;
    int hookMessage(unsigned long long hookId, const ImsMessage& message) override;

    // --- the requests themselves; each returns a `MessageStatus` and sets `status`

    /// The two halves of `handleMessage`: the parameter's type says who answers.
    static int query(const ImsMessage& message);
    static int set(const ImsMessage& message);

    /// A fact about the system as text. Facts about something take its name behind a ".", as in
    /// "usergroups.root"; lists come one name a line. What `SystemTools` throws passes through.
    static int querySystem(SystemQueryParam& param);
    /// The code of a system key, from 1, or 0 if it is unknown; case counts. `argument` receives
    /// what stands behind the first ".".
    static int mapSysKey(const std::string& key, std::string& argument);

    /// Reads a value of the registry. Unless it is there, the caller's stays as it is. With
    /// `TrimScope` a text loses the blanks at both ends, and so does each text of a list.
    /// Quirk: a key ends at its first ":". "Client" or "Server" behind it puts the key below
    /// "Resources\"; anything else there is dropped.
    static int queryLocalConf(SystemQueryParam& param) { return queryLocalConfFileReg(param); }
    static int queryLocalConfFileReg(SystemQueryParam& param);
    /// Writes one, trimmed in the same way; the caller's is left alone. With `ModifyScope` a number
    /// is added to the one that is there, or written if there is none; two that find none at the
    /// same time both write theirs. Texts and lists are always replaced.
    static int setLocalConf(SystemQueryParam& param) { return setLocalConfFileReg(param); }
    static int setLocalConfFileReg(SystemQueryParam& param);

    // --- directories of the installation, from the registry; blank if it has none

    static std::string getConfDir();
    static std::string getInstallDir();
    static std::string getTempDir();

    /// For applications that say where their local configuration is kept. Nothing asks.
    static void useFileRegistry() { UseFileRegistry = true; }

    static bool Active;           ///< Process-wide. True from the first agent on.
    static bool UseFileRegistry;  ///< Process-wide. Set by `useFileRegistry`.

private:
    explicit SystemBase(const std::string& name) : ImsAgent(name) {}

    unsigned long long queryHook = 0;  ///< 0 if there is none.
    unsigned long long setHook = 0;    ///< 0 if there is none.
};

}  // namespace TarvikCorelib
