// A person who does anything in any order: commands, clicks and keys at random, through the widgets of the window, with
// an answer to every question. After each step the window must be in order.
//
// Each seed is a session of its own: a new window with a copy of the sample. The environment variable
// OSTRIVANE_RANDOM_SECONDS gives the test more time than its usual share; it then goes on to further seeds.
// OSTRIVANE_RANDOM_SEED=7 replays one session and prints each step before it is taken.

#include <functional>
#include <iostream>
#include <random>

#include "model/clsProjekt.h"
#include "platform/temp_directory.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/frm_main.h"
#include "views/frm_optionen.h"
#include "views/frm_progress.h"
#include "views/frm_reach.h"
#include "views/main_panes.h"
#include "views/overview_row.h"
#include "views/overview_table.h"
#include "views/problems_list.h"
#include "views/reach_list.h"
#include "window_invariants.h"
#include "window_texts.h"

namespace {

constexpr unsigned kSeeds = 12;
constexpr int kSteps = 120;  // of a session
constexpr int kSeconds = 24;
constexpr int kCopies = 6;  // of each module in the wide project, whose operations last long enough to be cancelled
constexpr int kPatience = 60;

class Dice {
public:
    explicit Dice(unsigned seed) : numbers_(seed) {}
    /// From 0 to below `count`.
    int Below(qsizetype count) { return static_cast<int>(numbers_() % static_cast<unsigned>(count)); }
    bool OneIn(int count) { return Below(count) == 0; }
    template <class List>
    auto& Of(List& list) {
        return *std::next(std::begin(list), Below(static_cast<qsizetype>(std::size(list))));
    }

private:
    std::mt19937 numbers_;
};

// Answers whatever window opens above the main window, as long as one is open.
class Answers : public QObject {
public:
    Answers(Dice& dice, std::vector<std::string> projects) : dice_(dice), projects_(std::move(projects)) {
        connect(&look_, &QTimer::timeout, this, &Answers::Look);
        look_.start(1);
    }
    void CancelNext(bool cancel) { cancel_ = cancel; }
    [[nodiscard]] const QStringList& CutTextsSeen() const { return cut_; }

private:
    // An answer can open a further window and then returns late, so the timer itself must not give it.
    void Look() {
        QWidget* open = QApplication::activePopupWidget();
        if (!open)
            open = QApplication::activeModalWidget();
        if (!open || waiting_ || (qobject_cast<frmProgress*>(open) && !cancel_))
            return;
        waiting_ = true;
        QTimer::singleShot(0, this, [this, window = QPointer(open)] {
            waiting_ = false;
            if (window && window->isVisible())
                Answer(*window);
        });
    }
    void Answer(QWidget& window) {
        cut_ += CutTexts(window);
        if (auto* progress = qobject_cast<frmProgress*>(&window)) {
            cancel_ = false;
            progress->findChild<QPushButton*>(QStringLiteral("cmdCancel"))->click();
        } else if (auto* box = qobject_cast<QMessageBox*>(&window)) {
            const QList<QAbstractButton*> buttons = box->buttons();
            const bool asksToCancel = box->text() == TextNr(Text::AskCancel);
            (asksToCancel ? box->button(QMessageBox::Yes) : dice_.Of(buttons))->click();
        } else if (auto* menu = qobject_cast<QMenu*>(&window)) {
            for (int steps = dice_.Below(4); steps > 0; --steps)
                QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, dice_.OneIn(3) ? Qt::Key_Escape : Qt::Key_Return);
        } else if (auto* options = qobject_cast<frmOptionen*>(&window)) {
            ChooseOptions(*options);
        } else if (auto* files = qobject_cast<QFileDialog*>(&window)) {
            auto* name = files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            name->setText(ToPath(dice_.Of(projects_)));
            QTest::keyClick(name, dice_.OneIn(5) ? Qt::Key_Escape : Qt::Key_Return);
        } else {
            const auto* dialog = qobject_cast<QDialog*>(&window);
            const char* const names[] = {"cmdWrite", "cmdDelete", "cmdDeclare", "cmdRemove"};
            auto* button = window.findChild<QPushButton*>(QLatin1String(dice_.Of(names)));
            if (button && button->isVisible() && dice_.OneIn(2))
                button->click();
            else if (dialog)
                QTest::keyClick(&window, Qt::Key_Escape);
            else
                window.close();
        }
    }
    void ChooseOptions(frmOptionen& options) {
        for (const char* name :
             {"optLanguage0", "optLanguage1", "optWin320", "optWin321", "LoadLibs", "ReadCalls", "ProcVars"})
            if (dice_.OneIn(4))
                options.findChild<QAbstractButton*>(QLatin1String(name))->click();
        cut_ += CutTexts(options);
        const char* const buttons[] = {"cmdOK", "cmdOK", "cmdCancel", "cmdApply", "cmdDefaults"};
        options.findChild<QAbstractButton*>(QLatin1String(dice_.Of(buttons)))->click();
    }

    Dice& dice_;
    std::vector<std::string> projects_;
    QTimer look_;
    bool waiting_ = false;
    bool cancel_ = false;
    QStringList cut_;
};

class Session {
public:
    Session(unsigned seed, const std::string& programDirectory)
        : dice_(seed), settingsFile_(files_, directory_.Path("Ostrivane.ini")) {
        std::filesystem::copy(programDirectory + "samples", directory_.Path("samples"),
                              std::filesystem::copy_options::recursive);
        projects_ = {sample_ + "/ToolHire.vbp", MakeWideProject(),
                     directory_.Write("Small.vbp", "Type=Exe\r\nModule=Small; Small.bas\r\nName=\"Small\"\r\n")};
        for (std::string& path : projects_)
            path = path.front() == '/' ? path : directory_.Path(path);
        directory_.Write("Small.bas", "Attribute VB_Name = \"Small\"\r\nSub Main()\r\n  Main\r\nEnd Sub\r\n");
        window_ = std::make_unique<frmMain>(files_, settingsFile_, Settings(), programDirectory);
        window_->resize(1024, 700);
        window_->show();
        answers_ = std::make_unique<Answers>(dice_, projects_);
        window_->findChild<frmProgress*>()->showAfter = 0;
        FillSteps();
    }

    /// The name of the step taken.
    QString Step() {
        const int chosen = dice_.Below(weights_);
        const auto step = std::ranges::find_if(steps_, [chosen](const auto& each) { return chosen < each.upTo; });
        taken_.append(QLatin1String(step->name));
        if (log)
            std::cerr << "  " << taken_.size() << ' ' << step->name << '\n';
        mayChangeEdges_ = false;
        const auto edges = Edges();
        step->take();
        Settle();
        if (gProjekt && !mayChangeEdges_ && edges != Edges())
            broken_.append(QStringLiteral("edges: %1 in place of %2").arg(Edges()).arg(edges));
        broken_ += BrokenRules(*window_) + answers_->CutTextsSeen();
        return taken_.last();
    }
    [[nodiscard]] const QStringList& Broken() const { return broken_; }
    [[nodiscard]] const QStringList& Taken() const { return taken_; }

    bool log = false;

private:
    struct Kind {
        const char* name;
        int upTo;  // of the sum of weights
        std::function<void()> take;
    };

    // Modules under new names call each other, so there are many edges of both kinds.
    std::string MakeWideProject() const {
        std::string lines = "Type=Exe\r\nName=\"Wide\"\r\n";
        for (const auto& entry : std::filesystem::directory_iterator(directory_.Path(sample_))) {
            const std::string suffix = entry.path().extension().string();
            if (suffix != ".bas" && suffix != ".cls")
                continue;
            const std::string text = directory_.Bytes(sample_ + "/" + entry.path().filename().string());
            for (int copy = 0; copy < kCopies; ++copy) {
                const std::string name = entry.path().stem().string() + std::to_string(copy);
                std::string own = text;
                const std::string head = "Attribute VB_Name = \"";
                own.replace(own.find(head) + head.size(), entry.path().stem().string().size(), name);
                directory_.Write("wide/" + name + suffix, own);
                lines += (suffix == ".bas" ? "Module=" : "Class=") + name + "; " + name + suffix + "\r\n";
            }
        }
        return directory_.Write("wide/Wide.vbp", lines);
    }

    static std::size_t Edges() { return gProjekt ? gProjekt->calls.Count() : 0; }
    // Until the window has nothing left to do and all others are closed.
    static void Settle() {
        QElapsedTimer time;
        time.start();
        do {
            for (int turn = 0; turn < 4; ++turn)  // layouts ask others to be laid out again
                QApplication::processEvents(QEventLoop::AllEvents, 5);
            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        } while ((QApplication::activeModalWidget() || QApplication::activePopupWidget()) &&
                 time.elapsed() < kPatience * 1000);
    }

    void Trigger(const char* name) { window_->findChild<QAction*>(QLatin1String(name))->trigger(); }
    void TriggerAny(std::initializer_list<const char*> names) {
        Trigger(*(names.begin() + dice_.Below(static_cast<qsizetype>(names.size()))));
    }

    // Something long, which is cancelled at times.
    void TakeLong(bool cancel, const std::function<void()>& take) {
        mayChangeEdges_ = true;
        answers_->CancelNext(cancel);
        take();
        Settle();
        answers_->CancelNext(false);
    }
    void OpenAny() {
        if (dice_.OneIn(3)) {
            Trigger("OpenProject");
        } else if (dice_.OneIn(2)) {
            Drop(dice_.Of(projects_));
        } else {
            auto* recent = window_->findChildren<QMenu*>().at(1);
            Q_EMIT recent->aboutToShow();
            if (const QList<QAction*> actions = recent->actions(); !actions.isEmpty() && actions.front()->isEnabled())
                actions.front()->trigger();
        }
    }
    void Drop(const std::string& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(ToPath(path))});
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &enter);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &drop);
    }

    // Files as editors and version control leave them: longer, gone, back, foreign.
    void ChangeFiles() {
        const std::string path = directory_.Path(sample_) + (dice_.OneIn(2) ? "/modStore.bas" : "/clsTool.cls");
        const auto save = [this, &path](const std::string& bytes) {
            std::ofstream(path, std::ios::binary) << bytes;
            std::filesystem::last_write_time(
                path, std::filesystem::file_time_type::clock::now() + std::chrono::seconds(++changes_));
        };
        std::ostringstream now;
        now << std::ifstream(path, std::ios::binary).rdbuf();
        const bool exists = std::filesystem::exists(path);
        if (exists && dice_.OneIn(4)) {
            gone_[path] = now.str();
            std::filesystem::remove(path);
        } else if (!exists) {
            save(gone_[path]);
        } else {
            save(now.str() + "\r\nPublic Sub Added" + std::to_string(changes_) + "()\r\n  Main\r\nEnd Sub\r\n");
        }
        if (dice_.OneIn(5))
            ChangeProjectFile();
    }
    void ChangeProjectFile() {
        const std::string whole = directory_.Bytes("samples/ToolHire/ToolHire.vbp");
        if (gone_["vbp"].empty())
            gone_["vbp"] = whole;
        directory_.Write("samples/ToolHire/ToolHire.vbp", dice_.OneIn(3) ? "" : gone_["vbp"]);
        std::filesystem::last_write_time(
            projects_.front(), std::filesystem::file_time_type::clock::now() + std::chrono::seconds(++changes_));
    }
    void Refresh() {
        if (dice_.OneIn(2))
            ChangeFiles();
        TakeLong(dice_.OneIn(6), [this] { QTest::keyClick(window_.get(), Qt::Key_F5); });
    }

    // One of them, or null.
    BaumView* AnyTree() {
        QList<BaumView*> trees = VisibleTrees();
        return trees.isEmpty() ? nullptr : dice_.Of(trees);
    }
    [[nodiscard]] QList<BaumView*> VisibleTrees() const {
        QList<BaumView*> trees = window_->findChildren<BaumView*>();
        trees.removeIf([](const BaumView* tree) { return !tree->isVisible() || tree->Tree().Roots().empty(); });
        return trees;
    }
    // A row that can be seen, or an invalid index.
    QModelIndex AnyRow(const BaumView& tree) {
        return tree.indexAt({tree.viewport()->width() / 2, dice_.Below(std::max(tree.viewport()->height(), 1))});
    }
    void ClickTree() {
        BaumView* const tree = AnyTree();
        if (const QModelIndex row = tree ? AnyRow(*tree) : QModelIndex(); row.isValid())
            QTest::mouseClick(tree->viewport(), dice_.OneIn(4) ? Qt::RightButton : Qt::LeftButton, {},
                              tree->visualRect(row).center());
    }
    void KeysInTree() {
        constexpr Qt::Key keys[] = {Qt::Key_Down, Qt::Key_Down,  Qt::Key_Up,   Qt::Key_Right,    Qt::Key_Right,
                                    Qt::Key_Left, Qt::Key_Space, Qt::Key_Home, Qt::Key_PageDown, Qt::Key_Return,
                                    Qt::Key_Plus, Qt::Key_End,   Qt::Key_M,    Qt::Key_Asterisk};
        if (BaumView* const tree = AnyTree())
            PressAny(*tree, keys, 4);
    }
    // Up to so many of these keys.
    template <std::size_t count>
    void PressAny(QWidget& widget, const Qt::Key (&keys)[count], int most) {
        widget.setFocus();
        for (int times = 1 + dice_.Below(most); times > 0; --times)
            QTest::keyClick(&widget, dice_.Of(keys));
    }
    // One of these buttons, if it is enabled.
    template <std::size_t count>
    void ClickAny(const QWidget& window, const char* const (&names)[count]) {
        auto* button = window.findChild<QPushButton*>(QLatin1String(dice_.Of(names)));
        if (button->isEnabled())
            button->click();
    }
    void MenuOfTree() {
        if (BaumView* const tree = AnyTree()) {
            tree->setFocus();
            QTest::keyClick(tree, Qt::Key_F10, Qt::ShiftModifier);
        }
    }
    void Collect() {
        BaumView& tree = window_->BaumProjekt();
        QTest::keyClick(&tree, Qt::Key_C, Qt::ControlModifier);
        for (BaumView* view : window_->findChildren<BaumView*>())
            if (view->acceptDrops())
                QTest::keyClick(view, Qt::Key_V, Qt::ControlModifier);
    }
    // The boxes are at the left of the icons, one indentation further for each level.
    void ClickBox() {
        BaumView& tree = window_->BaumProjekt();
        const QModelIndex row = AnyRow(tree);
        if (!tree.isVisible() || !row.isValid())
            return;
        QStyleOptionViewItem option;
        option.rect = tree.visualRect(row);
        option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {},
                          tree.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &tree).center());
    }
    void Hover() {
        for (const BaumView* tree : VisibleTrees())
            if (const QModelIndex row = AnyRow(*tree); row.isValid()) {
                (void)row.data(Qt::ToolTipRole);
                (void)row.data(Qt::AccessibleTextRole);
            }
        CodeView& code = window_->rtbCode();
        const QPoint place(dice_.Below(300), dice_.Below(200));
        QHelpEvent event(QEvent::ToolTip, place, code.viewport()->mapToGlobal(place));
        QApplication::sendEvent(code.viewport(), &event);
    }
    void InCode() {
        CodeView& code = window_->rtbCode();
        if (!code.isVisible())
            return;
        const QPoint place(dice_.Below(300), dice_.Below(std::max(code.viewport()->height(), 1)));
        QTest::mouseClick(code.viewport(), dice_.OneIn(2) ? Qt::LeftButton : Qt::RightButton, {}, place);
        if (dice_.OneIn(3))
            QTest::keyClick(&code, dice_.OneIn(2) ? Qt::Key_Return : Qt::Key_Down);
    }
    void Find() {
        Trigger("Search");
        auto* field = window_->findChild<QLineEdit*>(QStringLiteral("searchField"));
        if (!field->isVisible())
            return;
        constexpr const char* texts[] = {"ma", "c", "hi", "zz", "get", "tool", "0"};
        QTest::keyClicks(field, QLatin1String(dice_.Of(texts)));
        constexpr Qt::Key ends[] = {Qt::Key_Return, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab, Qt::Key_F5};
        for (int downs = dice_.Below(3); downs > 0; --downs)
            QTest::keyClick(field, Qt::Key_Down);
        const Qt::Key end = dice_.Of(ends);
        mayChangeEdges_ = end == Qt::Key_F5;
        QTest::keyClick(field, end);
    }
    void Overview() {
        Trigger("Overview");
        QList<OverviewRow*> rows = window_->findChildren<OverviewRow*>();
        rows.removeIf([](const OverviewRow* row) { return !row->isVisible() || !row->isEnabled(); });
        if (!rows.isEmpty() && !dice_.OneIn(3))
            QTest::keyClick(dice_.Of(rows), Qt::Key_Space);
        auto& table = *window_->findChild<OverviewTable*>();
        if (!table.isVisible())
            return;
        QTest::keyClick(&table, Qt::Key_Down);
        QTest::keyClick(&table, dice_.OneIn(2) ? Qt::Key_Return : Qt::Key_Escape);
    }
    void Problems() {
        Trigger("Problems");
        auto& list = *window_->findChild<ProblemsList*>();
        ClickAny(list, {"cmdGoTo", "cmdCopy", "cmdClose"});
    }
    void Why() {
        TriggerAny({"ShowWhy", "ShowWhy", "DeclareEntry", "LeaveAlone", "DeclaredByUser"});
        Settle();
        auto& list = *window_->findChild<ReachList*>(QStringLiteral("why"));
        if (!list.isVisible() || list.Rows().empty())
            return;
        PressAny(list, {Qt::Key_Down, Qt::Key_Down, Qt::Key_End, Qt::Key_F3, Qt::Key_Return, Qt::Key_F9}, 4);
    }
    // Windows that stay open beside the main window.
    void PathOrImpact() {
        const bool isPath = dice_.OneIn(2);
        Trigger(isPath ? "CallPath" : "Impact");
        auto& window = *window_->findChild<frmReach*>(QLatin1String(isPath ? "frmCallPath" : "frmImpact"));
        if (auto* field = window.findChild<QLineEdit*>(QStringLiteral("searchField"))) {
            field->clear();
            QTest::keyClicks(field, QLatin1String(dice_.OneIn(2) ? "get" : "ma"));
            QTest::keyClick(field, Qt::Key_Return);
        }
        ClickAny(window, {"cmdGoTo", "cmdGraph", "cmdClose"});
    }
    void ClickVisible(const char* name) {
        for (auto* button : window_->findChildren<QAbstractButton*>(QLatin1String(name)))
            if (button->isVisible()) {
                mayChangeEdges_ = true;
                return button->click();
            }
    }
    void MoveBar() {
        QList<QSplitterHandle*> bars = window_->findChildren<QSplitterHandle*>();
        bars.removeIf([](const QSplitterHandle* bar) { return !bar->isVisible(); });
        if (bars.isEmpty())
            return;
        PressAny(*dice_.Of(bars), {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Return}, 8);
    }
    void Resize() {
        const QSize sizes[] = {{1024, 700}, {1280, 800}, {1024, 900}, {1600, 700}};
        window_->resize(dice_.Of(sizes));
    }

    void Add(const char* name, int weight, std::function<void()> take) {
        weights_ += weight;
        steps_.push_back({name, weights_, std::move(take)});
    }
    void FillSteps() {
        Add("open a project", 5, [this] { TakeLong(dice_.OneIn(6), [this] { OpenAny(); }); });
        Add("close the project", 1, [this] { Trigger("CloseProject"); });
        Add("read the calls", 2, [this] { TakeLong(false, [this] { Trigger("Calls"); }); });
        Add("read the calls and cancel", 2, [this] { TakeLong(true, [this] { Trigger("Calls"); }); });
        Add("refresh", 4, [this] { Refresh(); });
        Add("click a tree", 14, [this] { ClickTree(); });
        Add("keys in a tree", 10, [this] { KeysInTree(); });
        Add("menu of a tree", 2, [this] { MenuOfTree(); });
        Add("collect", 1, [this] { Collect(); });
        Add("click a box", 8, [this] { ClickBox(); });
        Add("show or hide boxes", 3, [this] { Trigger("CheckBoxOn"); });
        Add("all boxes", 2, [this] { TriggerAny({"CheckBoxAll", "CheckBoxNone"}); });
        Add("show all", 1, [this] { ClickVisible("ShowAll"); });
        Add("read all calls in the remark", 1, [this] { ClickVisible("ReadAllCalls"); });
        Add("really or may be", 4, [this] {
            TriggerAny({"CalledByReally", "CalledByMaybe", "CallsReally", "CallsMaybe"});
        });
        Add("arrangement", 5, [this] { TriggerAny({"SplitForContent", "SplitForCalls", "SplitForCalls"}); });
        Add("fold", 3, [this] { TriggerAny({"SplitX", "SplitY"}); });
        Add("collapse", 1, [this] { Trigger("CollapseAll"); });
        Add("move a bar", 2, [this] { MoveBar(); });
        Add("back or forward", 8, [this] { TriggerAny({"NavPrev", "NavNext", "NavPrev"}); });
        Add("whole module", 3, [this] { Trigger("WholeModule"); });
        Add("header", 1, [this] { ClickVisible("header"); });
        Add("overview", 3, [this] { Overview(); });
        Add("code", 2, [this] { Trigger("ContentCode"); });
        Add("in the code", 6, [this] { InCode(); });
        Add("delete", 5, [this] {
            mayChangeEdges_ = true;
            if (dice_.OneIn(2))
                TriggerAny({"DeleteObject", "DeleteObject", "DeleteDead", "DeletedHere", "SaveModules"});
            else
                ClickAny(*window_->findChild<QDialog*>(QStringLiteral("deletedList")), {"cmdUndo", "cmdUndoAll"});
        });
        Add("places", 3, [this] { TriggerAny({"NextPlace", "PreviousPlace"}); });
        Add("zoom", 2, [this] { TriggerAny({"ZoomPlus", "ZoomMinus", "ZoomNo"}); });
        Add("find", 5, [this] { Find(); });
        Add("hover", 3, [this] { Hover(); });
        Add("options", 4, [this] { Trigger("Options"); });
        Add("problems", 2, [this] { Problems(); });
        Add("reports", 1, [this] {
            mayChangeEdges_ = true;
            TriggerAny({"ReportStructure", "ReportCalls", "ReportDeaths"});
        });
        Add("help", 1, [this] { TriggerAny({"Keys", "Diagnosis", "About"}); });
        Add("copy", 1, [this] { TriggerAny({"CopyName", "CopyCodePath", "CopyAsText"}); });
        Add("why", 5, [this] { Why(); });
        Add("path or impact", 3, [this] { PathOrImpact(); });
        Add("resize", 2, [this] { Resize(); });
    }

    Dice dice_;
    TempDirectory directory_;
    DiskFiles files_;
    SettingsFile settingsFile_;
    const std::string sample_ = "samples/ToolHire";
    std::vector<std::string> projects_;
    std::unique_ptr<frmMain> window_;
    std::unique_ptr<Answers> answers_;
    std::vector<Kind> steps_;
    int weights_ = 0;
    bool mayChangeEdges_ = false;
    int changes_ = 0;
    std::map<std::string, std::string> gone_;  // what files held
    QStringList taken_, broken_;
};

int FromEnvironment(const char* name, int fallback) {
    const char* const value = std::getenv(name);
    return value ? std::atoi(value) : fallback;
}

class RandomCommands : public WindowTest {};

TEST_F(RandomCommands, LeaveTheWindowInOrder) {
    const int seed = FromEnvironment("OSTRIVANE_RANDOM_SEED", 0);
    const int seconds = FromEnvironment("OSTRIVANE_RANDOM_SECONDS", 0);
    QElapsedTimer time;
    time.start();
    const auto isTime = [&] { return seed > 0 || time.elapsed() < std::max(seconds, kSeconds) * 1000; };
    const unsigned first = seed > 0 ? static_cast<unsigned>(seed) : 1;
    const unsigned last = seed > 0 ? first : seconds > kSeconds ? 100000 : kSeeds;
    int steps = 0;
    for (unsigned own = first; own <= last && isTime() && !HasFailure(); ++own) {
        InitGlobals();
        Speak("english");
        Session session(own, ProgramDirectory());
        session.log = seed > 0;
        for (int step = 0; step < kSteps && isTime() && session.Broken().isEmpty(); ++step, ++steps)
            session.Step();
        EXPECT_TRUE(session.Broken().isEmpty())
            << session.Broken().join(QLatin1Char('\n')).toStdString() << "\nReplay: OSTRIVANE_RANDOM_SEED=" << own
            << "\nLast of " << session.Taken().size()
            << " steps: " << session.Taken().mid(session.Taken().size() - 12).join(QStringLiteral(", ")).toStdString();
    }
    RecordProperty("steps", steps);
}

}  // namespace
