// Parsers of the real-host backend, fed with text: no file of the machine is read.
#include "platform/LinuxHost.h"

#include <gtest/gtest.h>

TEST(LinuxHostParse, CpuInfo) {
    struct Case {
        const char* name;
        const char* text;
        int packages;
        const char* model;
    };
    const Case cases[] = {
        {"two packages, two cores each",
         "processor\t: 0\nmodel name\t: Xeon  Gold\nphysical id\t: 0\n\n"
         "processor\t: 1\nmodel name\t: Xeon  Gold\nphysical id\t: 0\n\n"
         "processor\t: 2\nmodel name\t: Other\nphysical id\t: 1\n\n"
         "processor\t: 3\nmodel name\t: Other\nphysical id\t: 1\n",
         2, "Xeon  Gold"},
        {"no physical id counts one package", "processor : 0\nmodel name : Cortex\n", 1, "Cortex"},
        {"no model name", "processor : 0\nphysical id : 0\n", 1, ""},
        {"empty", "", 1, ""},
        {"no trailing newline", "physical id: 7\nphysical id: 3", 2, ""},
        {"value with colon", "model name : CPU @ 2.10GHz: rev 2\n", 1, "CPU @ 2.10GHz: rev 2"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Platform::CpuFacts facts = Platform::Linux::ParseCpuInfo(c.text);
        EXPECT_EQ(facts.packages, c.packages);
        EXPECT_EQ(facts.model, c.model);
    }
}

TEST(LinuxHostParse, OsRelease) {
    struct Case {
        const char* text;
        const char* name;
        const char* version;
    };
    const Case cases[] = {
        {"PRETTY_NAME=\"Debian GNU/Linux 12\"\nNAME=\"Debian GNU/Linux\"\nVERSION_ID=\"12\"\n",
         "Debian GNU/Linux", "12"},
        {"NAME=Fedora\nVERSION_ID=40", "Fedora", "40"},
        {"NAME='Single'\n#VERSION_ID=1\n", "Single", ""},
        {"NAME=\"\n", "\"", ""},
        {"", "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        Platform::Linux::OsRelease os = Platform::Linux::ParseOsRelease(c.text);
        EXPECT_EQ(os.name, c.name);
        EXPECT_EQ(os.versionId, c.version);
    }
}
