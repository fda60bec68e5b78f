#include "libraries/corelib/source/system/HostFacts.h"

#include "libraries/corelib/source/system/SystemDatabase.h"
#include "test/support/FileFaults.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

namespace TarvikCorelib {
namespace {

TEST(HostFactsTest, AHostIsKnownByAnyNameOfALineWithAnIpv4Address) {
    constexpr const char* hosts =
        "2001:db8::1 far.example bigger\n"
        "192.0.2.8 other.example biggers\n"
        "192.0.2.7\tBig.Example.org  big BIGGER # last\n"
        "::ffff:192.0.2.9 mapped.example mapped\n"
        "::1 six.example bigger last";
    EXPECT_EQ(HostFacts::officialNameIn(hosts, "Bigger"), "Big.Example.org") << "the first line";
    EXPECT_EQ(HostFacts::officialNameIn(hosts, "mapped"), "mapped.example") << "IPv4 as IPv6";
    EXPECT_EQ(HostFacts::officialNameIn(hosts, "last"), "six.example") << "the loopback of IPv6";
}

TEST(HostFactsTest, AUserIsFoundByTheWholeNumber) {
    const char* users = "#:x:7:\n+:x:8:\n-:x:9:\na:x:11x:\nb:x:4294967296:\nc:x:10:5\nann:x:1:\n";
    EXPECT_EQ(HostFacts::nameIn(users, 1), "ann");
    for (const id_t id : {0U, 5U, 7U, 8U, 9U, 11U})
        EXPECT_EQ(HostFacts::nameIn(users, id), "") << id;
}

TEST(HostFactsTest, AHostIsNamedWithItsDomainEvenIfThatIsNone) {
    EXPECT_EQ(HostFacts::domainOf("vm.east.example"), "east.example");
    EXPECT_EQ(HostFacts::domainOf(""), "[unknown]");
    EXPECT_EQ(HostFacts::hostNameOf("vm", "[unknown]"), "vm");
    EXPECT_EQ(HostFacts::hostNameOf("vm", HostFacts::domainOf("vm")), "vm.[nodomain]");
    EXPECT_EQ(HostFacts::hostNameOf("vm.lan", "example.org"), "vm.lan");
}

TEST(HostFactsTest, OneDigitOfAVersionIsPadded) {
    EXPECT_EQ(HostFacts::versionOf("6.10.213-92"), "0610213");
}

TEST(SystemDatabaseTest, AFileIsSearchedByWholeLinesAsFarAsNeeded) {
    const tarvik_test::TempDir directory;
    // A name crosses the end of the first block.
    const std::string path =
        directory.write("users", "first:x:1:\n" + std::string(4080, '#') + "\nsomebody:x:2:");
    const auto nameOf = [&](id_t id) {
        return searchFile(path.c_str(),
                          [&](std::string_view text) { return HostFacts::nameIn(text, id); });
    };
    EXPECT_EQ(nameOf(2), "somebody") << "no line end";
    tarvik_test::FileFaults faults;
    EXPECT_EQ(nameOf(1), "first");
    EXPECT_EQ(faults.count(), 3U) << "open, read, close";
    faults.failFrom(1, EIO, "read");
    EXPECT_EQ(nameOf(1), "");
}

TEST(SystemDatabaseTest, ARecordGetsTheRoomItNeedsWithinLimits) {
    std::size_t needed = 5000;
    const auto call = [&](int* record, char* /*buffer*/, std::size_t size, int** found) {
        *found = record;
        return size < needed ? ERANGE : 0;
    };
    EXPECT_TRUE(DatabaseRecord<int>().read(call));
    needed = ~std::size_t{0};
    EXPECT_FALSE(DatabaseRecord<int>().read(call));
}

}  // namespace
}  // namespace TarvikCorelib
