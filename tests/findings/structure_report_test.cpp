#include "findings/structure_report.h"

#include "support/golden.h"
#include "support/project_test.h"

namespace {

using StructureReports = ProgramState;

}  // namespace

TEST_F(StructureReports, SampleProjectGivesTheGoldenFiles) {
    ReadSample();
    ExpectGoldenModules(StructureReport, "structure");
}
