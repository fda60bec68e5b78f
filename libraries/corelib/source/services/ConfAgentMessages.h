/// The templates of what the configuration agent throws.
#pragma once

#include "libraries/corelib/source/diagnostics/Template.h"

#include <cstddef>
#include <string>

namespace TarvikCorelib::messages {

// --- keywords and raw paths, system values

inline constexpr Template<2> keywordImsNotWorking =
    "@conf-agent.keyword.ims-not-working{Failed to register keyword \"%\" = \"%\" because IMS "
    "isn't "
    "working};";
inline constexpr Template<1> pathImsNotWorking =
    "@conf-agent.keyword.ims-not-working{Failed to process path \"%\" because IMS isn't working};";
inline constexpr Template<1> getSystemFailed =
    "@conf-agent.get-system.failed{Failed to get system value for \"%\"};";

// --- entries

inline constexpr Template<1> queryImsNotWorking =
    "@conf-agent.query.ims-not-working{Failed to query configuration entry \"%\" because IMS isn't "
    "working};";
inline constexpr Template<1> queryNotFound =
    "@conf-agent.query.not-found{Configuration entry \"%\" was not found};";
inline constexpr Template<2> queryWrongType =
    "@conf-agent.query.wrong-type{Configuration entry \"%\" is not of requested type (%)};";
inline constexpr Template<2> queryUnknownType =
    "@conf-agent.query.unknown-type{Got request for configuration entry \"%\" of type %, but no "
    "such "
    "type is defined};";
inline constexpr Template<1> queryInvalidPath =
    "@conf-agent.query.invalid-path{Invalid configuration node path \"%\"};";
inline constexpr Template<1> queryFailedToRemove =
    "@conf-agent.query.failed-to-remove{Failed to remove configuration node at \"%\"};";
inline constexpr Template<2> queryNotValidOption =
    "@conf-agent.get.not-valid-option{The value \"%\" at configuration entry \"%\" is not a valid "
    "option};";

// --- the local configuration

inline constexpr Template<1> getLocalImsNotWorking =
    "@conf-agent.get-local.ims-not-working{Failed to query local configuration key \"%\" because "
    "IMS "
    "isn't working};";
inline constexpr Template<1> getLocalNotFound =
    "@conf-agent.get-local.not-found{Configuration key \"%\" was not found};";
inline constexpr Template<2> getLocalWrongType =
    "@conf-agent.get-local.wrong-type{Configuration key \"%\" is not of requested type (%)};";
inline constexpr Template<2> getLocalNoAccess =
    "@conf-agent.get-local.no-access{Got request for configuration key \"%\" of type %, but failed "
    "to get access to it};";
inline constexpr Template<1> setLocalImsNotWorking =
    "@conf-agent.set-local.ims-not-working{Failed to set local configuration key \"%\" because IMS "
    "isn't working};";
inline constexpr Template<2> setLocalInvalidType =
    "@conf-agent.set-local.invalid-type{Cannot set configuration key \"%\" of type \"%\" - invalid "
    "type};";
inline constexpr Template<2> setLocalFailure =
    R"(@conf-agent.set-local.failure{Configuration key "%" of type "%" could not be set};)";
inline constexpr Template<2> setLocalNoAccess =
    "@conf-agent.set-local.no-access{Cannot set configuration key \"%\" of type \"%\" because "
    "access "
    "to it was denied};";

// --- data banks

inline constexpr Template<1, wchar_t> getDataImsNotWorking =
    L"@conf-agent.get-data.ims-not-working{Failed to query data bank \"%\" because IMS isn't "
    L"working};";
inline constexpr Template<1, wchar_t> getDataBankNotFound =
    L"@conf-agent.get-data.bank-not-found{Data bank \"%\" was not found};";
inline constexpr Template<2, wchar_t> getDataNotFound =
    L"@conf-agent.get-data.not-found{Key \"%\" was not found in bank \"%\"};";
inline constexpr Template<1> setDataImsNotWorking =
    "@conf-agent.set-data.ims-not-working{Failed to set to data bank \"%\" because IMS isn't "
    "working};";

// --- checks

inline constexpr Template<4> testValueOutOfRange =
    "@conf-agent.test.value-out-of-range{Configuration entry \"%\" (value=%) is not within the "
    "required range of % through %};";
// Quirk: the key says "blog".
inline constexpr Template<3> testValueNotMatchingGlob =
    "@conf-agent.test.value-not-matching-blog{Configuration entry \"%\" (value=\"%\") does not "
    "match "
    "the required \"%\"};";
inline constexpr Template<3> testValueNotOption =
    "@conf-agent.test.value-not-option{Configuration entry \"%\" (value=\"%\") does not match any "
    "of "
    "the specified options \"%\"};";
inline constexpr Template<2> testDirMustExist =
    "@conf-agent.test.dir-must-exist{Directory \"%\" specified at configuration entry \"%\" does "
    "not "
    "exist};";
// Quirk: the semicolon is inside, so it is shown.
inline constexpr Template<2> testDirCouldNotBeCreated =
    "@conf-agent.test.dir-could-not-be-created{Directory \"%\" specified at configuration entry "
    "\"%\" does not exist and could not be created;}";
inline constexpr Template<2> testFileMustExist =
    "@conf-agent.test.file-must-exist{File \"%\" specified at configuration entry \"%\" does not "
    "exist};";
// Quirk: the semicolon is inside, so it is shown.
inline constexpr Template<2> testFileCouldNotBeCreated =
    "@conf-agent.test.file-could-not-be-created{File \"%\" specified at configuration entry \"%\" "
    "does not exist and could not be created;}";
inline constexpr Template<1> testEmptyList =
    "@conf-agent.test.empty-list{List at configuration entry \"%\" cannot be empty};";
inline constexpr Template<2> testMissingListElement =
    "@conf-agent.test.missing-required-list-element{Required list element matching \"%\" was not "
    "found in list at configuration entry \"%\"};";
// Quirk: no "@", so the key is shown.
inline constexpr Template<2> testMissingAnyListElement =
    "conf-agent.test.missing-required-list-element{Required list element matching any of \"%\" was "
    "not found in list at configuration entry \"%\"};";
inline constexpr Template<4> testInvalidNumberOfSubs =
    "@conf-agent.test.invalid-number-of-subs{Configuration entry \"%\" have % sub-entries, but "
    "there "
    "cannot be less than % or more than %};";
inline constexpr Template<2> testMissingRequiredSub =
    "@conf-agent.test.missing-required-sub{Configuration entry \"%\" are missing the following "
    "required sub-entries: %};";

}  // namespace TarvikCorelib::messages
