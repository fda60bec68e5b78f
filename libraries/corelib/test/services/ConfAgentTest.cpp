#include "libraries/corelib/source/services/ConfAgent.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace TarvikCorelib {
namespace {

using Agent = const ConfAgent&;

constexpr int noService = 1000;

// Answers everything with one status and value, and notes what it is asked.
class Service : public ImsAgent {
public:
    Service(int status, std::string value)
        : ImsAgent("service"), status(status), value(std::move(value)) {}
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;
    ~Service() override { removeMessageHook(hook); }

    int hookMessage(unsigned long long /*hookId*/, const ImsMessage& message) override {
        if (message.generalType == "debug" || status == noService) return MsgIgnored;
        asked += message.generalType + "/" + message.groupType + "/" + message.messageType;
        if (auto* const entry = dynamic_cast<ConfQueryParam*>(message.parameter)) {
            reply(*entry, entry->isSet);
            for (const auto& [name, text] : entry->attributes)
                asked.append(" ").append(name).append("=").append(text);
        } else if (auto* const local = dynamic_cast<SystemQueryParam*>(message.parameter)) {
            reply(*local, message.groupType == "set");
            asked += " scope " + std::to_string(local->scope);
        } else if (auto* const data = dynamic_cast<DataQueryParam*>(message.parameter)) {
            asked += " " + data->text + (data->list.empty() ? "" : data->list.front());
            data->status = status;
            data->text = "text";
            data->list = data->names = {"item"};
        } else if (auto* const path = dynamic_cast<ConfPathParam*>(message.parameter)) {
            path->path = path->rawPath + "/processed";
        }
        asked += ";";
        return MsgHandled;
    }

    std::string asked;

private:
    template <class Param>
    void reply(Param& param, bool isSet) {
        asked += " type " + std::to_string(param.type) + (isSet ? " set" : "");
        param.key = "the service's";
        param.status = status;
        if (value == "no-memory") throw ConfAgent::Query_OutOfMemory("none left", here());
        if (value != "-" && isSet)
            asked += " " + std::to_string(*static_cast<long long*>(param.value));
        if (value != "-" && !isSet) give(param.type, param.value);
    }
    void give(int type, void* target) const {
        switch (type) {
        case ConfQueryParam::IntValue:
        case SystemQueryParam::LocalInt: return put(target, std::stoll(value));
        case ConfQueryParam::UIntValue: return put(target, std::stoull(value));
        case ConfQueryParam::FloatValue: return put(target, std::stod(value));
        case ConfQueryParam::DateTimeValue: return put(target, DateTime(std::stoull(value)));
        case ConfQueryParam::TimeSpanValue: return put(target, TimeSpan(value));
        case ConfQueryParam::ListValue:
        case ConfQueryParam::SubEntriesValue: return put(target, ConfAgent::Texts{value, "c"});
        default: return put(target, value);
        }
    }
    template <class Value>
    static void put(void* target, const Value& given) {
        *static_cast<Value*>(target) = given;
    }

    const int status;
    const std::string value;
    unsigned long long hook = setMessageHook(false, "", "", "", HookTypeNormal);
};

// What is thrown, with its causes behind bars, or else what the service was asked.
std::string outcomeOf(void (*operation)(Agent), const Service& service) {
    try {
        operation(ConfAgent());
    } catch (const Exception& exception) {
        EXPECT_FALSE(exception.getLocations().empty());
        std::string text = exception.getFullMessage(true);
        return StringTools::substitute(text, "\n", " | ");
    }
    return service.asked;
}

const std::map<std::string, int> codes{{"fast", 7}, {"Slow", 8}};
const std::set<std::string> options{"fast", "Slow"};
const ConfAgent::Texts required{"x", "c", "y"};
const ConfAgent::Attributes attribute{{"a", "1"}};

const std::map<std::string, void (*)(Agent)> operations{
    {"bool", [](Agent a) { a.setBool("k", a.getBool("k")); }},
    {"int", [](Agent a) { a.setInt("k", a.getInt("k")); }},
    {"uint", [](Agent a) { a.setUInt("k", a.getUInt("k")); }},
    {"float", [](Agent a) { a.setFloat("k", a.getFloat("k")); }},
    {"double", [](Agent a) { a.setDouble("k", a.getDouble("k")); }},
    {"dir", [](Agent a) { a.setDir("k", a.getDir("k")); }},
    {"file", [](Agent a) { a.setFile("k", a.getFile("k")); }},
    {"time", [](Agent a) { a.setTime("k", a.getTime("k")); }},
    {"instant", [](Agent a) { a.setDateTime("k", a.getDateTime("k")); }},
    {"fields", [](Agent a) { a.setDateTimeDetails("k", a.getDateTimeDetails("k")); }},
    {"time of day", [](Agent a) { a.setTimeOfDay("k", a.getTimeOfDay("k")); }},
    {"zone", [](Agent a) { a.setTimeZone("k", a.getTimeZone("k")); }},
    {"span", [](Agent a) { a.setTimeSpan("k", a.getTimeSpan("k")); }},
    {"texts", [](Agent a) { a.setString(a.findPath("k"), a.getAsString("k")); }},
    {"list", [](Agent a) { a.setList("k", a.getList("k"), ConfAgent::StoredAsList); }},
    {"list of one", [](Agent a) { a.setList("k", "x", ConfAgent::StoredAsString); }},
    {"node", [](Agent a) { a.setNode("k", a.getSubEntries("k"), attribute); }},
    {"attributes", [](Agent a) { a.setNode("k", {}, a.getAttributes("k")); }},
    {"removed", [](Agent a) { a.haveNode("k") ? a.removeNode("k") : a.setData("b", "k", "x"); }},

    {"local int", [](Agent a) { a.modifyLocalConf("k", a.getLocalConfInt("k", 0), 6); }},
    {"local uint", [](Agent a) { a.setLocalConf("k", a.getLocalConfUInt("k", 1), 2); }},
    {"local float", [](Agent a) { a.setLocalConf("k", a.getLocalConfFloat("k", 1), 2); }},
    {"local text", [](Agent a) { a.setLocalConf("k", a.getLocalConfString("k", 1), 2); }},
    {"local list", [](Agent a) { a.setLocalConf("k", a.getLocalConfList("k", 1), 2); }},
    {"set local", [](Agent a) { a.setLocalConf("k", 5, 6); }},
    {"system", [](Agent a) { static_cast<void>(a.getSystem("k")); }},
    {"bank text", [](Agent a) { a.setData("b", "k", a.getData("b", "k")); }},
    {"moved text", [](Agent a) { a.addData("b", "k", a.extractData("b", "k")); }},
    {"bank list", [](Agent a) { a.setData("b", "k", a.getDataList("b", "k")); }},
    {"moved list", [](Agent a) { a.addData("b", "k", a.extractDataList("b", "k")); }},
    {"whole bank", [](Agent a) { a.setData(a.getDataNames("b").front(), attribute); }},
    {"any status, set bank", [](Agent a) { a.setData("b", "k", "x"); }},
    {"path", [](Agent a) { a.registerKeyword("a", a.processPath("b")); }},
    {"keyword", [](Agent a) { a.registerKeyword("a", "b"); }},
    {"no parameter, entry", [](Agent a) { a.sendQuery(nullptr); }},
    {"no parameter, local", [](Agent a) { a.queryLocal(nullptr); }},
    {"no parameter, set local", [](Agent a) { a.setLocal(nullptr); }},

    {"check int", [](Agent a) { a.testInt("k", 1, 10); }},
    {"check uint", [](Agent a) { a.testUInt("k", 1, ~0ULL); }},
    {"check float", [](Agent a) { a.testFloat("k", -0.5, 1); }},
    {"check time", [](Agent a) { a.testTime("k", DateTime(1), DateTime(5)); }},
    {"check span", [](Agent a) { a.testTimeSpan("k", TimeSpan(1), TimeSpan("P30D")); }},
    {"checks", [](Agent a) { a.testBool("k"), a.testTimeZone("k"), a.testTimeOfDay("k"); }},
    {"glob", [](Agent a) { a.testString("k", "f*"); }},
    {"text is lowered, options are not", [](Agent a) { a.testStringOptions("k", options); }},
    {"code of a word", [](Agent a) { static_cast<void>(a.getStringOption("k", codes)); }},
    {"any list", [](Agent a) { a.testList("k", true, {}, {}); }},
    {"list with all and any", [](Agent a) { a.testList("k", false, {"a*"}, {"?"}); }},
    {"list with one of all", [](Agent a) { a.testList("k", false, required, {}); }},
    {"list with any", [](Agent a) { a.testList("k", false, {}, {"x"}); }},
    {"number of names", [](Agent a) { a.testSubEntries("k", 1, 2); }},
    {"names", [](Agent a) { a.testSubEntries("k", required); }},
    {"dir that exists", [](Agent a) { a.testDir("k", ConfAgent::MustExist); }},
    {"made dir", [](Agent a) { a.testDir("k", ConfAgent::CreateIfMissing); }},
    {"any dir", [](Agent a) { a.testDir("k", ConfAgent::NoCheck); }},
    {"file that exists", [](Agent a) { a.testFile("k", ConfAgent::MustExist); }},
    {"made file", [](Agent a) { a.testFile("k", ConfAgent::CreateIfMissing); }},
};

// A line of the file has the status and the value of the service, the operation and its outcome.
TEST(ConfAgentTest, AnOperationAsksTheServiceOrThrows) {
    std::istringstream lines(tarvik_test::readFile(CONF_AGENT_OUTCOMES));
    std::set<std::string> used;
    int status = 0;
    for (std::string value, name, expected;
         lines >> status >> value && std::getline(lines >> std::ws, name, ':') &&
         std::getline(lines >> std::ws, expected);
         used.insert(name)) {
        const Service service(status, value);
        EXPECT_EQ(outcomeOf(operations.at(name), service), expected) << name << ' ' << status;
    }
    EXPECT_EQ(used.size(), operations.size());
}

TEST(ConfAgentTest, AMissingDirectoryOrFileIsMadeWithTheDirectoriesAboveIt) {
    const tarvik_test::TempDir dir;
    {
        const Service service(0, dir.path() + "/a/b");
        ConfAgent().testDir("k", ConfAgent::CreateIfMissing);
        ConfAgent().testDir("k", ConfAgent::MustExist);
    }
    const Service service(0, dir.path() + "/c/d");
    ConfAgent().testFile("k", ConfAgent::CreateIfMissing);
    ConfAgent().testFile("k", ConfAgent::MustExist);
}

template <class Value>
concept Flag = requires(Agent agent, Value value) {
    agent.setBool("k", value);
};
static_assert(Flag<bool> && !Flag<const char*> && !Flag<int> && !LocalValue<bool>);

TEST(ConfAgentTest, AnyExceptionGivesTheDefault) {
    EXPECT_EQ(ConfAgent().getInt("k", 5), 5);
    EXPECT_EQ(ConfAgent().getTime("k", 7), 7U);
    const Service service(0, "no-memory");
    EXPECT_EQ(ConfAgent().getString("k", "x"), "x");
}

TEST(ConfAgentTest, ANumberWithoutANameIsUndefined) {
    EXPECT_EQ(ConfAgent::mapConfType(25) + ConfAgent::mapConfType(18), "local setundefined");
    EXPECT_EQ(ConfAgent::mapConfType("undefined"), ConfAgent::mapConfType("none"));
    EXPECT_EQ(ConfAgent::mapConfType("local uint"), 22);
    EXPECT_EQ(ConfAgent::mapConfError(9) + ConfAgent::mapConfError(-1), "File errorUnknown error");
}

}  // namespace
}  // namespace TarvikCorelib
