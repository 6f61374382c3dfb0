#include "shell/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ports.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

class CountingRegistry : public MemoryRegistry {
public:
    int writes = 0;
    int result = 0;
    int WriteValue(RegistryRoot root, std::string_view key, std::string_view name, std::string_view value) override {
        ++writes;
        return result ? result : MemoryRegistry::WriteValue(root, key, name, value);
    }
    [[nodiscard]] std::optional<std::string> Version() const {
        return ReadValue(RegistryRoot::LocalMachine, "Software\\Ostrivane", "Version");
    }
};

TEST(VersionRecord, IsWrittenOnlyWhenItDiffers) {
    const RecordingMessages messages;
    CountingRegistry registry;
    Version_Record(registry, "1.2.3");
    EXPECT_THAT(registry.Version(), Optional(std::string("1.2.3")));
    Version_Record(registry, "1.2.3");
    EXPECT_EQ(registry.writes, 1);
    Version_Record(registry, "1.10.0");
    EXPECT_THAT(registry.Version(), Optional(std::string("1.10.0")));
    EXPECT_THAT(messages.texts, IsEmpty());
}

TEST(VersionRecord, FailedWriteIsToldWithTheSystemsCode) {
    const RecordingMessages messages;
    CountingRegistry registry;
    registry.result = 5;
    Version_Record(registry, "1.2.3");
    EXPECT_THAT(messages.texts, ElementsAre("Error during program start: you must have administrator rights! 5"));
}

}  // namespace
