/// What the configuration agent throws.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"

namespace TarvikCorelib {

class ConfAgent;

/// A base of `ConfAgent`, so that callers catch `ConfAgent::Query_NotFound`. In each family
/// `ImsNotWorking` means that no service has handled the message, `OutOfMemory` that there is no
/// memory to send one.
struct ConfAgentExceptions {
    // --- keywords and raw paths
    using Keyword_OutOfMemory = NamedException<ConfAgent, "Keyword_OutOfMemory">;
    using Keyword_ImsNotWorking = NamedException<ConfAgent, "Keyword_ImsNotWorking">;

    // --- system values: whatever the reason is
    using GetSystem_Failed = NamedException<ConfAgent, "GetSystem_Failed">;

    // --- entries
    using Query_OutOfMemory = NamedException<ConfAgent, "Query_OutOfMemory">;
    using Query_ImsNotWorking = NamedException<ConfAgent, "Query_ImsNotWorking">;
    using Query_NotFound = NamedException<ConfAgent, "Query_NotFound">;
    using Query_WrongType = NamedException<ConfAgent, "Query_WrongType">;
    using Query_UnknownType = NamedException<ConfAgent, "Query_UnknownType">;
    using Query_InvalidPath = NamedException<ConfAgent, "Query_InvalidPath">;
    using Query_FailedToRemove = NamedException<ConfAgent, "Query_FailedToRemove">;
    using Query_NotValidOption = NamedException<ConfAgent, "Query_NotValidOption">;

    // --- the local configuration
    using GetLocal_OutOfMemory = NamedException<ConfAgent, "GetLocal_OutOfMemory">;
    using GetLocal_ImsNotWorking = NamedException<ConfAgent, "GetLocal_ImsNotWorking">;
    using GetLocal_NotFound = NamedException<ConfAgent, "GetLocal_NotFound">;
    using GetLocal_WrongType = NamedException<ConfAgent, "GetLocal_WrongType">;
    using GetLocal_NoAccess = NamedException<ConfAgent, "GetLocal_NoAccess">;
    using SetLocal_OutOfMemory = NamedException<ConfAgent, "SetLocal_OutOfMemory">;
    using SetLocal_ImsNotWorking = NamedException<ConfAgent, "SetLocal_ImsNotWorking">;
    using SetLocal_InvalidType = NamedException<ConfAgent, "SetLocal_InvalidType">;
    using SetLocal_Failure = NamedException<ConfAgent, "SetLocal_Failure">;
    using SetLocal_NoAccess = NamedException<ConfAgent, "SetLocal_NoAccess">;

    // --- data banks; the messages of the first three are wide
    using GetData_ImsNotWorking = NamedException<ConfAgent, "GetData_ImsNotWorking">;
    using GetData_BankNotFound = NamedException<ConfAgent, "GetData_BankNotFound">;
    using GetData_NotFound = NamedException<ConfAgent, "GetData_NotFound">;
    using SetData_ImsNotWorking = NamedException<ConfAgent, "SetData_ImsNotWorking">;

    // --- checks; each of the first five contains the exception of the query
    using Test_OutOfMemory = NamedException<ConfAgent, "Test_OutOfMemory">;
    using Test_ImsNotWorking = NamedException<ConfAgent, "Test_ImsNotWorking">;
    using Test_NotFound = NamedException<ConfAgent, "Test_NotFound">;
    using Test_WrongType = NamedException<ConfAgent, "Test_WrongType">;
    using Test_UnknownType = NamedException<ConfAgent, "Test_UnknownType">;
    using Test_ValueOutOfRange = NamedException<ConfAgent, "Test_ValueOutOfRange">;
    using Test_ValueNotMatchingGlob = NamedException<ConfAgent, "Test_ValueNotMatchingGlob">;
    using Test_ValueNotOption = NamedException<ConfAgent, "Test_ValueNotOption">;
    using Test_DirMustExist = NamedException<ConfAgent, "Test_DirMustExist">;
    using Test_DirCouldNotBeCreated = NamedException<ConfAgent, "Test_DirCouldNotBeCreated">;
    using Test_FileMustExist = NamedException<ConfAgent, "Test_FileMustExist">;
    using Test_FileCouldNotBeCreated = NamedException<ConfAgent, "Test_FileCouldNotBeCreated">;
    using Test_EmptyList = NamedException<ConfAgent, "Test_EmptyList">;
    using Test_MissingRequiredListElement =
        NamedException<ConfAgent, "Test_MissingRequiredListElement">;
    using Test_InvalidNumberOfSubs = NamedException<ConfAgent, "Test_InvalidNumberOfSubs">;
    using Test_MissingRequiredSub = NamedException<ConfAgent, "Test_MissingRequiredSub">;
};

}  // namespace TarvikCorelib
