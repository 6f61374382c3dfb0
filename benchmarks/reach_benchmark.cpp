// What the answers about dead code cost beside the analysis of calls: reach_benchmark PROJECT.vbp [ROUNDS]. Each round
// reads the project again, so that the first use is measured, in the state in which reading leaves the memory.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "calls/driver.h"
#include "display/why_text.h"
#include "model/clsProjekt.h"
#include "platform/files.h"
#include "project/project_file.h"
#include "project/start.h"
#include "reach/reasons.h"
#include "shell/timing.h"

namespace {

template <class Work>
double Milliseconds(const Work& work) {
    clsQueryTimer timer;
    timer.Start();
    work();
    timer.Halt();
    return timer.LastRun;
}

double Median(std::vector<double> times) {
    std::ranges::sort(times);
    return times[times.size() / 2];
}

struct Round {
    double calls = 0;
    double reach = 0;
    double grades = 0;  // of all objects; the walk over what is dead is made for the first
    std::size_t objects = 0;
    std::vector<double> pages;  // "Why" of so many objects, spread over the project, on request
    std::string worst;          // code path of the one that took longest
};

constexpr std::size_t kPages = 30'000;

Round RoundOf(Files& files, const std::string& path, bool withPages) {
    Round round;
    clsProjekt& projekt = NewProject(files, path);
    Projekt_Laden(projekt);
    round.calls = Milliseconds([&] { Who_Calls_Who(projekt); });
    std::unique_ptr<Reach> reach;
    round.reach = Milliseconds([&] { reach = std::make_unique<Reach>(projekt); });
    const Reasons reasons(*reach);
    const auto grade = [&](const CodeObject& object) {
        (void)reasons.GradeOf(object);
        ++round.objects;
    };
    round.grades = Milliseconds([&] { reach->ForEachObject(grade); });
    std::size_t nr = 0;
    double longest = 0;
    const std::size_t step = round.objects / kPages + 1;
    if (withPages)
        reach->ForEachObject([&](const CodeObject& object) {
            if (nr++ % step != 0)
                return;
            round.pages.push_back(Milliseconds([&] { (void)WhyRowsOf(reasons, object); }));
            if (round.pages.back() > longest) {
                longest = round.pages.back();
                round.worst = object.CodePath();
            }
        });
    return round;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::puts("reach_benchmark PROJECT.vbp [ROUNDS]");
        return 1;
    }
    InitGlobals();
    DiskFiles files;
    std::vector<double> calls, reach, grades, share;
    const int rounds = argc > 2 ? std::max(std::atoi(argv[2]), 1) : 9;
    for (int nr = 0; nr < rounds; ++nr) {
        const Round round = RoundOf(files, argv[1], nr + 1 == rounds);
        calls.push_back(round.calls);
        reach.push_back(round.reach);
        grades.push_back(round.grades);
        share.push_back((round.reach + round.grades) / round.calls * 100);
        if (nr + 1 < rounds)
            continue;
        std::printf("objects %zu\ncalls  %8.2f ms\nreach  %8.2f ms\ngrades %8.2f ms\n", round.objects, Median(calls),
                    Median(reach), Median(grades));
        std::printf("reach and grades %.1f %% of calls\n", Median(share));
        if (!round.pages.empty())
            std::printf("why    %8.3f ms median, %.3f ms worst (%s), %.3f ms the first\n", Median(round.pages),
                        std::ranges::max(round.pages), round.worst.c_str(), round.pages.front());
    }
    CloseProject();
    return 0;
}
