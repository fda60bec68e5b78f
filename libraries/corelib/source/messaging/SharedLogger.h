/// The logger that all agents of a process share.
#pragma once

#include <atomic>
#include <cstdint>

namespace TarvikCorelib {

class Logger;

/// Process-wide. Null as long as there is no agent, so ask before each use.
extern std::atomic<Logger*> Log;
/// Process-wide. The agents that share it; loggers are not counted.
extern std::atomic<std::int32_t> LogInstances;

/// The first of these makes the shared logger, named "imsagent", and the last one destroys it. Each
/// `createLogger` needs a `destroyLogger`; one that throws does not count. Agents call them.
/// So the last agent must not die while another thread, which has none, sends messages of type
/// "debug".
void createLogger();
void destroyLogger();

}  // namespace TarvikCorelib
