/// The part of the configuration agent that checks entries.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"
#include "libraries/corelib/source/services/ConfAgentEntries.h"
#include "libraries/corelib/source/services/ConfParameters.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>

namespace TarvikCorelib {

/// A base of `ConfAgent`. Each check reads an entry as its `get...` does and throws a `Test_...`
/// exception if it cannot be read or breaks the rule. Bounds are inclusive.
class ConfAgentChecks : public ConfAgentEntries {
public:
    // Each of the first five contains the exception of the query.
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

    /// Reads an entry for a check: writes its value, of the C++ type that `type` says, to `value`.
    /// Wraps the exceptions of `sendQuery`, apart from `Query_InvalidPath` and
    /// `Query_FailedToRemove`, which pass through.
    void test(const std::string& key, std::int32_t type, void* value) const;

    void testBool(const std::string& key) const { tested<BoolValue>(key); }
    void testInt(const std::string& key, long long min, long long max) const;
    void testUInt(const std::string& key, unsigned long long min, unsigned long long max) const;
    void testFloat(const std::string& key, double min, double max) const;
    /// The whole text must match the glob.
    void testString(const std::string& key, const std::string& glob) const;
    /// The text must be one of the options.
    /// Quirk: the text is lowered and the options are not.
    void testStringOptions(const std::string& key, const std::set<std::string>& options) const;
    void testTime(const std::string& key, const DateTime& min, const DateTime& max) const;
    void testTimeOfDay(const std::string& key) const { tested<TimeOfDayValue>(key); }
    void testTimeZone(const std::string& key) const { tested<TimeZoneValue>(key); }
    void testTimeSpan(const std::string& key, const TimeSpan& min, const TimeSpan& max) const;

    /// What is expected of a path; any other number expects nothing.
    enum ExistenceCheck : std::int32_t { MustExist = 0, CreateIfMissing = 1, NoCheck = 2 };
    /// Links are followed; a file in the place of a directory is a missing directory, and the other
    /// way round. `CreateIfMissing` makes an empty one, with the directories above it.
    void testDir(const std::string& key, ExistenceCheck check) const;
    void testFile(const std::string& key, ExistenceCheck check) const;

    /// Each glob of `requiredAll` must match an element, and one of `requiredAny`, unless that is
    /// empty.
    void testList(const std::string& key, bool allowEmpty, const Texts& requiredAll,
                  const Texts& requiredAny) const;
    /// How many entries there must be below it, or which ones.
    void testSubEntries(const std::string& key, std::size_t min, std::size_t max) const;
    void testSubEntries(const std::string& key, const Texts& required) const;

protected:
    ConfAgentChecks() = default;

private:
    template <ConfQueryParam::Type Type>
    ConfQueryParam::Value<Type> tested(const std::string& key) const {
        ConfQueryParam::Value<Type> value{};
        test(key, Type, &value);
        return value;
    }
};

}  // namespace TarvikCorelib
