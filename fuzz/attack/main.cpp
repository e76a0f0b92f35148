// The attack: any operations with hostile arguments on each class of the library. On the simulated desktop
// the sanitizers watch, and so do the library's own checks of its data; on both platforms the census of the
// platform's objects.
//
//   gesso_attack [--class NAME]...   these classes alone
//                [--seed N]          the first run's; the runs behind it count on. Even ones are in Modern
//                [--ops N]           operations of a run
//                [--runs N | --seconds S]
//                [--only 3,17,22]    of a run's operations these alone
//                [--tell]            prints each operation with its arguments
//                [--list]            prints the classes
//
// A finding ends the program. What it prints last is how to see it again.

#include "Classes.h"

#include <gesso/containers/Misuse.h>
#include <gesso/gesso.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

namespace {

using namespace attack;

struct Plan
{
    std::vector<std::string> classes;
    uint64_t nSeed = 1;
    UINT nOps = 400;
    UINT nRuns = 1;
    double fSeconds = 0;
    std::vector<UINT> only; // all where it is empty
    bool fTell = false;
};

// Of the run that goes on, to be told where it finds something.
struct Now
{
    std::string name;
    uint64_t nSeed = 0;
    UINT nOps = 0;
    UINT nOperation = 0;
    bool fRuns = false;
};
Now s_now;

void TellHowToRepeat()
{
    if (std::exchange(s_now.fRuns, false)) {
        std::fprintf(stderr, "\nattack: finding by --class %s --seed %llu --ops %u, in operation %u\n",
                     s_now.name.c_str(), static_cast<unsigned long long>(s_now.nSeed), s_now.nOps,
                     s_now.nOperation);
    }
}

[[noreturn]] void Find(const std::string& finding)
{
    std::fprintf(stderr, "attack: %s\n", finding.c_str());
    std::abort();
}

// --- One run

bool Takes(const Plan& plan, UINT nOperation)
{
    return plan.only.empty() || std::binary_search(plan.only.begin(), plan.only.end(), nOperation);
}

void Step(World& world, const Plan& plan, uint64_t nSeed, UINT nOperation)
{
    s_now.nOperation = nOperation;
    desk::EndAfter(desk::LONGEST_OPERATION);
    Source source(nSeed, nOperation + 1);
    if (plan.fTell) {
        std::printf("%6u", nOperation);
    }
    const char* const pszName = world.Step(source);
    if (plan.fTell) {
        std::printf("\n");
    }
    if (const std::string fault = world.Check(); !fault.empty()) {
        Find(fault + ", after " + pszName);
    }
}

std::string Lost(const desk::Census& before, const desk::Census& after)
{
    return "left behind: " + desk::Told(after) + " where there was " + desk::Told(before);
}

desk::Census Play(const AttackedClass& attacked, const Plan& plan, uint64_t nSeed)
{
    Source source(nSeed, 0);
    gesso::SetScaling(gesso::Scaling::None);
    {
        const std::unique_ptr<World> world = attacked.make(source);
        for (UINT n = 0; n < plan.nOps; ++n) {
            if (Takes(plan, n)) {
                Step(*world, plan, nSeed, n);
            }
        }
        s_now.nOperation = plan.nOps;
        desk::EndAfter(desk::LONGEST_OPERATION);
        world->End(source);
    }
    desk::Reset();
    return desk::Live();
}

void Run(const AttackedClass& attacked, const Plan& plan, uint64_t nSeed)
{
    s_now = {std::string(attacked.name), nSeed, plan.nOps, 0, true};
    gesso::SetBehavior(nSeed % 2 ? gesso::Behavior::Classic : gesso::Behavior::Modern);
    desk::Reset();
    desk::Census before = desk::Live();
    for (UINT nPlay = 1;; ++nPlay) {
        desk::Census after = Play(attacked, plan, nSeed);
        if (!desk::Grew(before, after)) {
            break;
        }
        if (nPlay == desk::PLAYS) {
            Find(Lost(before, after));
        }
        before = std::move(after);
    }
    if (!desk::HeapIsClean()) {
        Find("memory that nothing holds");
    }
    desk::EndAfter(0);
    s_now.fRuns = false;
}

// --- All runs of a class

double Seconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void Attack(const AttackedClass& attacked, const Plan& plan)
{
    const double fStart = Seconds();
    UINT nRuns = 0;
    desk::Census first;
    do {
        Run(attacked, plan, plan.nSeed + nRuns);
        first = nRuns == 0 ? desk::Live() : first;
        ++nRuns;
    } while (plan.fSeconds > 0 ? Seconds() - fStart < plan.fSeconds : nRuns < plan.nRuns);
    const double fTook = Seconds() - fStart;
    const double fOps = static_cast<double>(nRuns) * plan.nOps;
    std::printf("%-20s %9.0f operations %6.1f seconds %7.0f a second\n", std::string(attacked.name).c_str(),
                fOps, fTook, fOps / fTook);
    std::printf("  held after the first run: %s; at the end: %s\n", desk::Told(first).c_str(),
                desk::Told(desk::Live()).c_str());
    std::fflush(stdout);
}

// --- The command line

std::vector<UINT> Numbers(const char* psz)
{
    std::vector<UINT> numbers;
    std::istringstream in(psz);
    for (std::string number; std::getline(in, number, ',');) {
        numbers.push_back(static_cast<UINT>(std::stoul(number)));
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

void List()
{
    for (const AttackedClass& attacked : Classes()) {
        std::printf("%s\n", std::string(attacked.name).c_str());
    }
}

bool Knows(const std::string& name)
{
    const auto& classes = Classes();
    return std::any_of(classes.begin(), classes.end(),
                       [&](const AttackedClass& attacked) { return attacked.name == name; });
}

bool Read(int argc, char** argv, Plan& plan)
{
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        if (option == "--tell") {
            plan.fTell = true;
            continue;
        }
        if (option == "--list" || ++i == argc) {
            return false;
        }
        if (option == "--class" && !Knows(argv[i])) {
            std::fprintf(stderr, "attack: there is no class %s\n", argv[i]);
            return false;
        }
        if (option == "--class") {
            plan.classes.push_back(argv[i]);
        } else if (option == "--seed") {
            plan.nSeed = std::stoull(argv[i]);
        } else if (option == "--ops") {
            plan.nOps = static_cast<UINT>(std::stoul(argv[i]));
        } else if (option == "--runs") {
            plan.nRuns = static_cast<UINT>(std::stoul(argv[i]));
        } else if (option == "--seconds") {
            plan.fSeconds = std::stod(argv[i]);
        } else if (option == "--only") {
            plan.only = Numbers(argv[i]);
        } else {
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    Plan plan;
    if (!Read(argc, argv, plan)) {
        List();
        return 2;
    }
    desk::AtBadEnd(TellHowToRepeat);
    gesso::SetMisuseStops(false);
    Source::TellAll(plan.fTell);
    InitControls();
    for (const AttackedClass& attacked : Classes()) {
        const std::string name(attacked.name);
        if (plan.classes.empty() || std::count(plan.classes.begin(), plan.classes.end(), name) > 0) {
            Attack(attacked, plan);
        }
    }
    return 0;
}
