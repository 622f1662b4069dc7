// Parsers of the real-host backend, fed with text: no file of the machine is read.
#include "platform/LinuxHost.h"

#include <gtest/gtest.h>

TEST(LinuxHostParse, CpuInfo) {
    struct Case {
        const char* text;
        int packages;
        const char* model;
    } cases[] = {{"processor\t: 0\nmodel name\t: Xeon  Gold\nphysical id\t: 0\n\nprocessor\t: 1\nmodel "
                  "name\t: Xeon  Gold\n"
                  "physical id\t: 0\n\nprocessor\t: 2\nmodel name\t: Other\nphysical id\t: 1\n",
                  2, "Xeon  Gold"},
                 {"processor : 0\nmodel name : Cortex\n", 1, "Cortex"}, // no physical id: one package
                 {"", 1, ""},
                 {"physical id: 7\nphysical id: 3", 2, ""}, // no trailing newline
                 {"model name : CPU @ 2.10GHz: rev 2\n", 1, "CPU @ 2.10GHz: rev 2"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        Platform::CpuFacts facts = Platform::Linux::ParseCpuInfo(c.text);
        EXPECT_EQ(facts.packages, c.packages);
        EXPECT_EQ(facts.model, c.model);
    }
}

TEST(LinuxHostParse, OsRelease) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"PRETTY_NAME=\"Debian GNU/Linux 12\"\nNAME=\"Debian GNU/Linux\"\nVERSION_ID=\"12\"\n",
         "Debian GNU/Linux", "12"},
        {"NAME=Fedora\nVERSION_ID=40", "Fedora", "40"},
        {"NAME='Single'\n#VERSION_ID=1\n", "Single", ""},
        {"NAME=\"\n", "\"", ""}};
    for (const auto& [text, name, version] : cases) {
        Platform::Linux::OsRelease os = Platform::Linux::ParseOsRelease(text);
        EXPECT_EQ(os.name, name) << text;
        EXPECT_EQ(os.versionId, version) << text;
    }
}
