#include "shell/program.h"

#include <gmock/gmock.h>

#include "support/ports.h"

namespace {

class CountingRegistry : public MemoryRegistry {
public:
    int writes = 0;
    int WriteValue(RegistryRoot root, std::string_view key, std::string_view name, std::string_view value) override {
        return ++writes > 2 ? 5 : MemoryRegistry::WriteValue(root, key, name, value);
    }
};

TEST(VersionRecord, IsWrittenOnlyWhenItDiffersAndFailureIsReported) {
    const RecordingMessages messages;
    CountingRegistry registry;
    for (const auto& [version, writes] : {std::pair{"1.2.3", 1}, {"1.2.3", 1}, {"1.10.0", 2}}) {
        Version_Record(registry, version);
        EXPECT_EQ(registry.ReadValue(RegistryRoot::LocalMachine, "Software\\Ostrivane", "Version"), version);
        EXPECT_EQ(registry.writes, writes);
    }
    EXPECT_THAT(messages.texts, testing::IsEmpty());
    Version_Record(registry, "2.0.0");
    EXPECT_THAT(messages.texts,
                testing::ElementsAre("Error during program start: you must have administrator rights! 5"));
}

}  // namespace
