#include "libraries/corelib/source/services/ConfAgentChecks.h"

#include "libraries/corelib/source/diagnostics/DiagnosticsMessages.h"
#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/match/GlobMatcher.h"
#include "libraries/corelib/source/services/ConfAgentMessages.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/source/text/StringToolsSplit.h"
#include "libraries/filelib/source/directory/DirTools.h"
#include "libraries/filelib/source/directory/FileTools.h"

#include <sys/stat.h>

#include <algorithm>
#include <type_traits>

namespace TarvikCorelib {

namespace {

constexpr std::string_view listSeparator = ", ";

// What is no number is in no range.
template <class Value>
bool isWithin(const Value& value, const Value& min, const Value& max) {
    if constexpr (std::is_arithmetic_v<Value>)
        return min <= value && value <= max;
    else
        return value.compare(min) >= 0 && value.compare(max) <= 0;
}

template <class Number>
Number shown(Number number) {
    return number;
}

std::string shown(const DateTime& instant) {
    return instant.getGmtString(true, false, false);
}

std::string shown(const TimeSpan& span) {
    return std::string(span);
}

template <class Value>
void requireWithin(const std::string& key, const Value& value, const Value& min, const Value& max) {
    if (isWithin(value, min, max)) return;
    throw made<ConfAgentChecks::Test_ValueOutOfRange>(messages::testValueOutOfRange, here(), key,
                                                      shown(value), shown(min), shown(max));
}

bool anyMatches(const ConfAgentChecks::Texts& texts, const std::string& glob) {
    return std::any_of(texts.begin(), texts.end(),
                       [&glob](const std::string& text) { return GlobMatcher::match(text, glob); });
}

enum class PathKind { Missing, Dir, File };

PathKind kindOf(const std::string& path) {
    struct stat facts {};
    if (::stat(path.c_str(), &facts) != 0) return PathKind::Missing;
    return S_ISDIR(facts.st_mode) ? PathKind::Dir : PathKind::File;
}

// Makes what is missing, with the directories above it. Somebody else may do so meanwhile.
template <class Failure>
void makeMissing(const std::string& path, const std::string& key, PathKind kind,
                 const Template<2>& text, void (*create)(const std::string&)) {
    try {
        TarvikFilelib::DirTools::ensureParentExists(path);
        create(path);
    } catch (const Exception& cause) {
        if (kindOf(path) == kind) return;
        throw Failure(text.view(), here(), valuesFor(text, path, key), cause);
    }
}

}  // namespace

void ConfAgentChecks::test(const std::string& key, std::int32_t type, void* value) const {
    try {
        read(key, type, value);
    } catch (const Query_OutOfMemory& cause) {
        throw Test_OutOfMemory(messages::outOfMemory, here(), ParamStream(), cause);
    } catch (const Query_ImsNotWorking& cause) {
        throw Test_ImsNotWorking(here(), cause);
    } catch (const Query_NotFound& cause) {
        throw Test_NotFound(here(), cause);
    } catch (const Query_WrongType& cause) {
        throw Test_WrongType(here(), cause);
    } catch (const Query_UnknownType& cause) {
        throw Test_UnknownType(here(), cause);
    }
}

void ConfAgentChecks::testInt(const std::string& key, long long min, long long max) const {
    requireWithin(key, tested<IntValue>(key), min, max);
}

void ConfAgentChecks::testUInt(const std::string& key, unsigned long long min,
                               unsigned long long max) const {
    requireWithin(key, tested<UIntValue>(key), min, max);
}

void ConfAgentChecks::testFloat(const std::string& key, double min, double max) const {
    requireWithin(key, tested<FloatValue>(key), min, max);
}

void ConfAgentChecks::testString(const std::string& key, const std::string& glob) const {
    const std::string value = tested<StringValue>(key);
    if (!GlobMatcher::match(value, glob))
        throw made<Test_ValueNotMatchingGlob>(messages::testValueNotMatchingGlob, here(), key,
                                              value, glob);
}

void ConfAgentChecks::testStringOptions(const std::string& key,
                                        const std::set<std::string>& options) const {
    const std::string value = tested<StringValue>(key);
    std::string word = value;
    if (!options.contains(StringTools::lower(word)))
        throw made<Test_ValueNotOption>(messages::testValueNotOption, here(), key, value,
                                        StringTools::join(options, listSeparator));
}

void ConfAgentChecks::testTime(const std::string& key, const DateTime& min,
                               const DateTime& max) const {
    requireWithin(key, tested<DateTimeValue>(key), min, max);
}

void ConfAgentChecks::testTimeSpan(const std::string& key, const TimeSpan& min,
                                   const TimeSpan& max) const {
    requireWithin(key, tested<TimeSpanValue>(key), min, max);
}

void ConfAgentChecks::testDir(const std::string& key, ExistenceCheck check) const {
    const std::string path = tested<DirValue>(key);
    if (kindOf(path) == PathKind::Dir) return;
    if (check == MustExist)
        throw made<Test_DirMustExist>(messages::testDirMustExist, here(), path, key);
    if (check == CreateIfMissing)
        makeMissing<Test_DirCouldNotBeCreated>(path, key, PathKind::Dir,
                                               messages::testDirCouldNotBeCreated,
                                               &TarvikFilelib::DirTools::createDir);
}

void ConfAgentChecks::testFile(const std::string& key, ExistenceCheck check) const {
    const std::string path = tested<FileValue>(key);
    if (kindOf(path) == PathKind::File) return;
    if (check == MustExist)
        throw made<Test_FileMustExist>(messages::testFileMustExist, here(), path, key);
    if (check == CreateIfMissing)
        makeMissing<Test_FileCouldNotBeCreated>(path, key, PathKind::File,
                                                messages::testFileCouldNotBeCreated,
                                                &TarvikFilelib::FileTools::createFile);
}

void ConfAgentChecks::testList(const std::string& key, bool allowEmpty, const Texts& requiredAll,
                               const Texts& requiredAny) const {
    const Texts texts = tested<ListValue>(key);
    if (texts.empty() && !allowEmpty)
        throw made<Test_EmptyList>(messages::testEmptyList, here(), key);

    const auto isMatched = [&texts](const std::string& glob) { return anyMatches(texts, glob); };
    const auto missing = std::find_if_not(requiredAll.begin(), requiredAll.end(), isMatched);
    if (missing != requiredAll.end())
        throw made<Test_MissingRequiredListElement>(messages::testMissingListElement, here(),
                                                    *missing, key);

    if (!requiredAny.empty() && std::none_of(requiredAny.begin(), requiredAny.end(), isMatched))
        throw made<Test_MissingRequiredListElement>(messages::testMissingAnyListElement, here(),
                                                    StringTools::join(requiredAny, listSeparator),
                                                    key);
}

void ConfAgentChecks::testSubEntries(const std::string& key, std::size_t min,
                                     std::size_t max) const {
    const std::size_t count = tested<SubEntriesValue>(key).size();
    if (!isWithin(count, min, max))
        throw made<Test_InvalidNumberOfSubs>(messages::testInvalidNumberOfSubs, here(), key, count,
                                             min, max);
}

void ConfAgentChecks::testSubEntries(const std::string& key, const Texts& required) const {
    const Texts names = tested<SubEntriesValue>(key);
    Texts missing = required;
    missing.remove_if([&names](const std::string& name) {
        return std::find(names.begin(), names.end(), name) != names.end();
    });
    if (!missing.empty())
        throw made<Test_MissingRequiredSub>(messages::testMissingRequiredSub, here(), key,
                                            StringTools::join(missing, listSeparator));
}

}  // namespace TarvikCorelib
