// The current objects of the window and what follows from them: the code shown and the selection in it, the path line,
// the object that a click into the code leads to, and the places for back and forward.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "display/call_places.h"
#include "display/code_colours.h"
#include "display/node_objects.h"
#include "display/properties.h"
#include "model/clsCall.h"

class clsControl;
class clsEnum;
class clsType;
class clsTypeLib;
class clsVariable;

/// The current objects, null where there is none.
struct Selection {
    CodeObject* CurObject = nullptr;
    CodeObject* CalledObject = nullptr;  // of the node clicked last in a dependency tree
    clsModul* CurModule = nullptr;
    clsProzedur* CurProc = nullptr;
    clsVariable* CurVar = nullptr;
    clsType* CurType = nullptr;
    clsEnum* CurEnum = nullptr;
    clsControl* CurControl = nullptr;
    clsTypeLib* CurLib = nullptr;
};

/// The code paths of the current objects after the last activation, which outlive the objects. Empty for none.
struct LastCodePaths {
    std::string CurObject, CurModule, CurProc, CurVar, CurType, CurEnum, CurControl;
    bool operator==(const LastCodePaths&) const = default;
};

/// The selection for a node of this key; CalledObject is left alone. What CurObject is decides all others. A key
/// without an object gives the module that its first word names, if any.
void Set_GlobalObjects_fromNode(const clsProjekt& projekt, Selection& selection, const NodeId& node);
/// CalledObject for a node of a dependency tree.
void SetCalledObject(const clsProjekt& projekt, Selection& selection, const NodeId& node);

[[nodiscard]] LastCodePaths Set_LastObjects(const Selection& selection);
/// Whether the dependency trees have to be filled again: the object differs from the last one. A variable of a
/// procedure counts as its procedure.
[[nodiscard]] bool NeedsDependencies(const Selection& selection, const LastCodePaths& last);

/// The line above the code: the path of the object, a word for its kind where the path does not show it, the file of a
/// module. Bytes as in the source.
[[nodiscard]] std::string CodePath_Anzeigen(const Selection& selection);

/// Whether an edge of this kind counts as a call or use of `object`: members count as their type or enumeration, all
/// that belongs to a module, locals excepted, as the module. A certain call includes uses.
[[nodiscard]] bool Reaches(const clsCall& call, const CodeObject& object, CallType type);
/// What a mark at a place means that calls or uses `target`.
[[nodiscard]] Colour ColourOfPlace(const CodeObject& target, CallType type, const clsModul& caller);
/// The places of a certain kind at which `caller`, a procedure or the declarations of a module, calls or uses `object`,
/// rising; with their colours.
[[nodiscard]] std::vector<CodeSpan> SelectCallMe(const CodeObject& object, CallType type, const CodeObject& caller,
                                                 const CodeText& shown, const std::vector<LocalUse>& locals);

// Position in the shown text to object. A position counts from 0, as the code view gives it; a name is hit from its
// first to its last character.

/// The procedure around a position of the module, or null.
[[nodiscard]] clsProzedur* Get_ProcNachPos(const clsModul& modul, Pos posInModule);
/// The type or enumeration around a position of the module, or null.
[[nodiscard]] CodeObject* GetTypeNachZeichenPos(const clsModul& modul, Pos posInModule);
/// What a click into the code of a procedure leads to: what is certainly called or used there, else a variable that is
/// declared there. Null where nothing is to be selected.
[[nodiscard]] CodeObject* SelChanged(const clsProzedur& prozedur, const std::vector<LocalUse>& locals, Pos selStart);
/// The same for the declarations of a module; without a call or use it is the declaration around the place. Null also
/// when that is `curType`, which stays selected.
[[nodiscard]] CodeObject* SelChanged(const clsModul& modul, Pos selStart, const clsType* curType);

/// The text of the code view. It is kept so that a text is made again only if another one is to be shown: the cursor,
/// selection and scroll position survive a click into the same procedure.
class CodePane {
public:
    /// What changes on the screen.
    struct Change {
        bool newText = false;             // Text() is another one; an empty one clears the view
        std::optional<CodeRange> select;  // to be selected and scrolled to
        std::vector<CodeSpan> places;     // to be marked
        int currentPlace = 1;             // that of them to be scrolled to when nothing is selected, from 1
    };

    /// What rtbCode shows for the current object.
    [[nodiscard]] Change Show_Structure(const clsProjekt& projekt, const Selection& selection);
    /// The places where `caller` calls or uses `object`; its text comes up when it is not the one shown.
    [[nodiscard]] Change SelectCallsOfObject(const clsProjekt& projekt, const CodeObject& object,
                                             const clsProzedur& caller, CallType type);
    /// The text with the place of this number, and all of the places that it shows.
    /// @param places  rising within a module
    [[nodiscard]] Change ShowPlace(const clsProjekt& projekt, const std::vector<CallPlace>& places, std::size_t at);

    /// Where a click leads, judged by the text that is shown: SelChanged of its procedure, for which nothing may be
    /// selected, or of its module.
    [[nodiscard]] const CodeObject* ObjectClicked(const clsProjekt& projekt, const Selection& selection, Pos selStart,
                                                  Pos selLength) const;
    /// Whether the whole module of an object is shown, and the header of its file with it. The text shown is forgotten.
    void ShowWhole(bool whole, bool withHeader);
    [[nodiscard]] bool IsWhole() const { return whole_; }
    [[nodiscard]] bool HasHeader() const { return withHeader_; }
    /// How many lines of the module shown are its header; 0 while only a part of the module is shown.
    [[nodiscard]] int HeaderLines(const clsProjekt& projekt) const;
    /// The procedures whose code is shown.
    [[nodiscard]] std::vector<const clsProzedur*> Procedures(const clsProjekt& projekt) const;

    /// The object whose name is at a place of the shown text, for its hover text: certainly called or used, else
    /// possibly, else declared there. Null outside of names.
    [[nodiscard]] const CodeObject* ObjectAt(const clsProjekt& projekt, Pos selStart) const;

    [[nodiscard]] const CodeText& Text() const { return text_; }
    /// CodePath of the object whose text is shown; empty for none.
    [[nodiscard]] const std::string& ShownPath() const { return shownPath_; }
    /// Drops everything that belongs to objects.
    void Reset();
    /// The next text is made again even if it is for the same object: after a change of edges, marks or modules.
    void Forget() { shownPath_.clear(); }
    /// Where the locals of the procedures shown so far are named.
    [[nodiscard]] const LocalUses& Locals() const { return locals_; }
    /// Determines them for a procedure that may not have been shown in this generation.
    const LocalUses& LookAtLocals(const clsProzedur& prozedur);

private:
    void Clear();
    bool ShowDeclarations(const clsProjekt& projekt, const clsModul& modul);
    bool ShowOwner(const clsProjekt& projekt, const CodeObject& owner);
    bool ShowText(const clsProjekt& projekt, const CodeObject& owner, CodeText text);
    [[nodiscard]] const std::vector<LocalUse>& LocalsOf(const CodeObject& owner) const;
    [[nodiscard]] bool IsShown(const CodeObject& owner) const;
    [[nodiscard]] CodeObject* Owner(const clsProjekt& projekt) const;

    LocalUses locals_;
    CodeText text_;
    std::string shownPath_;
    std::string modulWithMap_;  // CodePath of the module whose map the last text was coloured by
    bool whole_ = false;
    bool withHeader_ = false;
};

/// Rows with the place of the cursor: line, and start, end and length of the selection, in the text and in the module.
/// The text of a procedure counts from its declaration, so that places in the comment above it are negative.
[[nodiscard]] PropertyRows Anzeigen_TextPos(const CodeText& shown, Pos selStart, Pos selLength);

/// The list for back and forward: nodes, each with the selection in its code.
class NavigationList {
public:
    struct Record {
        NodeId node;
        Pos SelStart = 0;
        Pos SelLength = 0;
    };

    /// Adds a record after the current one and drops all later ones, as browsers do. The current node adds nothing.
    void AddNavCodeKey(const NodeId& node);
    /// Notes the selection in the current record.
    void NoteSelection(Pos selStart, Pos selLength);
    /// The places stay: when the same objects are shown in other stretches of their modules.
    void ForgetSelections();
    /// One step back or on; null at the end. Activating the node of the record adds nothing, as it is the current one.
    const Record* NavCodeKey_Prev();
    const Record* NavCodeKey_Next();
    [[nodiscard]] const Record& Current() const { return records_[index_]; }

    [[nodiscard]] bool NavPrevEnabled() const { return index_ > 1; }
    [[nodiscard]] bool NavNextEnabled() const { return index_ + 1 < records_.size(); }
    void Clear();

private:
    std::vector<Record> records_{1};  // the first is no place
    std::size_t index_ = 0;
};
