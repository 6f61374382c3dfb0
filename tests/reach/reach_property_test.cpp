// Compares the walks with a plain one that knows nothing of holders, numbers and queues: it relaxes one long list of
// links until nothing changes.

#include <random>
#include <set>

#include "reach/reach.h"
#include "reach/reasons.h"
#include "support/golden.h"
#include "support/project_test.h"

namespace {

using Distances = std::map<const CodeObject*, int>;

// What the declaration at a position declares: of all that begin before it the last.
const CodeObject* DeclaredAt(const clsModul& modul, Pos pos) {
    const CodeObject* last = &modul;
    Pos start = 0;
    const auto look = [&](const CodeObject& object) {
        if (object.DeclareStart <= pos && object.DeclareStart >= start && object.Class() != ObjectClass::Control) {
            last = &object;
            start = object.DeclareStart;
        }
    };
    for (const CodeObject* object : modul.Owned())
        look(*object);
    for (const clsType* type : modul.myTypes)
        for (const clsVariable* member : type->MyVars)
            look(*member);
    for (const clsEnum* einEnum : modul.myEnums)
        for (const clsVariable* member : einEnum->MyVars)
            look(*member);
    return last;
}

std::vector<Link> AllLinks(const clsProjekt& projekt) {
    std::vector<Link> links;
    projekt.calls.ForEach([&](const clsCall& call) {
        const CodeObject* from = call.CallProcedure();
        links.push_back({from ? from : DeclaredAt(*call.CallModule(), call.CallPos), call.Parent,
                         call.Type() == CallType::Really  ? LinkKind::Call
                         : call.Type() == CallType::MayBe ? LinkKind::PossibleCall
                                                          : LinkKind::Use,
                         call.CallPos});
    });
    for (const clsModul* modul : projekt.AllModules()) {
        for (const clsType* type : modul->myTypes)
            for (const clsVariable* member : type->MyVars)
                links.push_back({member, type, LinkKind::Member, member->DeclareStart});
        for (const clsEnum* einEnum : modul->myEnums)
            for (const clsVariable* member : einEnum->MyVars)
                links.push_back({member, einEnum, LinkKind::Member, member->DeclareStart});
    }
    return links;
}

Distances PlainWalk(const std::vector<Link>& links, const std::vector<EntryPoint>& entries, bool certainOnly) {
    Distances distances;
    for (const EntryPoint& entry : entries)
        if (!certainOnly || entry.kind != EntryKind::NamedInString)
            distances[entry.object] = 0;
    for (bool changed = true; changed;) {
        changed = false;
        for (const Link& link : links) {
            const auto from = distances.find(link.from);
            if (from == distances.end() || (certainOnly && link.kind == LinkKind::PossibleCall))
                continue;
            const auto [to, isNew] = distances.emplace(link.to, from->second + 1);
            changed |= isNew || to->second > from->second + 1;
            to->second = std::min(to->second, from->second + 1);
        }
    }
    return distances;
}

void ExpectChain(const Reach& reach, const std::vector<Link>& links, const CodeObject& object, std::size_t length) {
    const Chain chain = reach.ChainTo(object);
    ASSERT_NE(chain.entry, nullptr);
    EXPECT_EQ(chain.links.size(), length);
    EXPECT_EQ(chain.IsCertain(), reach.StateOf(object) == ReachState::Certain);
    const CodeObject* at = chain.entry->object;
    for (const Link& link : chain.links) {
        EXPECT_EQ(link.from, at);
        EXPECT_THAT(links, testing::Contains(link));
        at = link.to;
    }
    EXPECT_EQ(at, &object);
}

void ExpectLikePlainWalk() {
    Analyse();
    const Reach reach(*gProjekt);
    const std::vector<Link> links = AllLinks(*gProjekt);
    const Distances certain = PlainWalk(links, reach.EntryPoints(), true);
    const Distances any = PlainWalk(links, reach.EntryPoints(), false);
    reach.ForEachObject([&](const CodeObject& object) {
        SCOPED_TRACE(object.CodePath());
        if (certain.contains(&object)) {
            EXPECT_EQ(reach.StateOf(object), ReachState::Certain);
            ExpectChain(reach, links, object, static_cast<std::size_t>(certain.at(&object)));
        } else if (any.contains(&object)) {
            EXPECT_EQ(reach.StateOf(object), ReachState::Possible);
            ExpectChain(reach, links, object, static_cast<std::size_t>(any.at(&object)));
        } else {
            EXPECT_EQ(reach.StateOf(object), ReachState::None);
            EXPECT_EQ(reach.ChainTo(object).entry, nullptr);
        }
    });
}

// A standard module and two classes whose procedures name each other, constants, types and members at random.
class RandomProject {
public:
    explicit RandomProject(unsigned seed) : random_(seed) {}

    std::string Standard() {
        std::string text =
            "Public Const c0 = 1\nPrivate Type T0\n m0 As Long\n m1 As T1\nEnd Type\nPrivate Type T1\n m2 As "
            "E0\nEnd Type\nPublic Enum E0\n e0 = c0\n e1\nEnd Enum\nPrivate g0 As T0, g1 As C0\n"
            "Public Const c1 = c0 + e1, c2 = c1\n";
        return text + Procedures("s", 12);
    }
    std::string Class(const std::string& name) {
        return "Private a" + name + " As Long\nPublic b" + name + " As T1\n" + Procedures(name, 6);
    }

private:
    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }
    std::string Procedures(const std::string& prefix, int count) {
        std::string text;
        for (int nr = 0; nr < count; ++nr) {
            text += (Below(2) ? "Public Sub " : "Private Sub ") + prefix + std::to_string(nr) + "()\n Dim v, o As C" +
                    std::to_string(Below(2)) + ", t As T0\n";
            for (int calls = Below(3); calls > 0; --calls)
                text += Statement();
            text += "End Sub\n";
        }
        return text;
    }
    std::string Statement() {
        static const std::vector<std::string> kStatements{
            " s# 1\n",    " s#\n",     " v.p#\n",     " o.p#\n",          " o.q#\n",
            " x = c#\n",  " x = e#\n", " t.m0 = 1\n", " g0.m1.m2 = e#\n", " x = \"s#\"\n",
            " Call s#\n", " g1.q#\n",  " y.m#\n"};
        std::string statement = kStatements[static_cast<std::size_t>(Below(static_cast<int>(kStatements.size())))];
        return Replace(statement, "#", std::to_string(Below(statement.find('s') != std::string::npos ? 12 : 3)));
    }
    std::mt19937 random_;
};

class ReachProperties : public ProgramState {};

}  // namespace

TEST_F(ReachProperties, SampleIsReachedLikeByAPlainWalk) {
    ReadSample();
    ExpectLikePlainWalk();
}

TEST_F(ReachProperties, RandomProjectsAreReachedLikeByAPlainWalk) {
    std::set<int> lengths;
    for (unsigned seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        RandomProject project(seed);
        const std::string standard = project.Standard();
        const std::string p = project.Class("p");
        ReadProject({{"P.vbp", "Type=Exe\nModule=M; M.bas\nClass=C0; C0.cls\nClass=C1; C1.cls\nStartup=\"Sub Main\"\n"},
                     {"M.bas", standard + "Sub Main()\n s0\n s1\nEnd Sub\n"},
                     {"C0.cls", p},
                     {"C1.cls", project.Class("q")}});
        ExpectLikePlainWalk();
        const Reach reach(*gProjekt);
        reach.ForEachObject([&](const CodeObject& object) {
            lengths.insert(static_cast<int>(reach.StateOf(object)) * 100 +
                           static_cast<int>(reach.ChainTo(object).links.size()));
        });
    }
    // All states occur, and chains that are worth comparing.
    EXPECT_TRUE(lengths.contains(0));
    EXPECT_TRUE(lengths.contains(103));
    EXPECT_TRUE(lengths.contains(204));
}
