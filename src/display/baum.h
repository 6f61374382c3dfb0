// The nodes of a tree as plain data: what the trees of the window show, and the operations on it. A widget translates
// it; tests read it as it is.
//
// Nodes are found by kind and key without regard to case; the key of a code object's node is that of NodeKeyOf.
// Children of a Sorted node are ordered by text without regard to case, equal texts by entry; all other nodes are in
// the order of entry.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class Baum;

/// What a node represents. The same key can belong to a root and to an object: a module may be called "Reference".
enum class NodeKind : std::uint8_t {
    Object,
    Group,  // objects of one kind in a module; its key begins with that of the module
    Root,   // a kind of modules or libraries
};

/// Identifies a node, also after its tree was filled again.
struct NodeId {
    NodeId() = default;
    /// The node of an object.
    NodeId(std::string_view path) : key(path) {}
    NodeId(const std::string& path) : key(path) {}
    NodeId(const char* path) : key(path) {}
    NodeId(NodeKind itsKind, std::string_view itsKey) : kind(itsKind), key(itsKey) {}
    bool operator==(const NodeId&) const = default;

    NodeKind kind = NodeKind::Object;
    std::string key;
};

/// The meaning of a node's colour; the settings and the palette define the colour.
enum class NodeColour : std::uint8_t {
    Ordinary,
    Grey,   // dead and undead objects
    Faint,  // the same as far as the structure alone says, before the calls are known
    PublicGroup,
    PrivateGroup,
};

class BaumNode {
public:
    BaumNode(const BaumNode&) = delete;
    BaumNode& operator=(const BaumNode&) = delete;

    [[nodiscard]] NodeKind Kind() const { return kind_; }
    [[nodiscard]] const std::string& Key() const { return key_; }
    [[nodiscard]] NodeId Id() const { return {kind_, key_}; }
    [[nodiscard]] const std::string& Text() const { return text_; }
    [[nodiscard]] std::string_view Image() const { return image_; }
    /// Icon while expanded; empty when it is that of Image.
    [[nodiscard]] std::string_view ExpandedImage() const { return expandedImage_; }
    [[nodiscard]] NodeColour ForeColor() const { return foreColor_; }
    [[nodiscard]] bool Bold() const { return bold_; }
    [[nodiscard]] bool Expanded() const { return expanded_; }
    [[nodiscard]] bool Checked() const { return checked_; }
    /// Has nodes below it that are added when it is unfolded.
    [[nodiscard]] bool Unfolds() const { return unfolds_; }

    [[nodiscard]] BaumNode* Parent() const { return parent_; }  // null for roots
    [[nodiscard]] BaumNode* Child() const { return children_.empty() ? nullptr : children_.front(); }
    [[nodiscard]] BaumNode* Next() const;
    [[nodiscard]] BaumNode* FirstSibling() const;
    /// Place among the siblings, from 0.
    [[nodiscard]] int Row() const { return row_; }
    [[nodiscard]] const std::vector<BaumNode*>& ChildNodes() const { return children_; }

private:
    friend class Baum;
    BaumNode() = default;
    std::string key_;
    std::string text_;
    std::string_view image_;
    std::string_view expandedImage_;
    BaumNode* parent_ = nullptr;
    std::vector<BaumNode*> children_;
    const std::vector<BaumNode*>* siblings_ = nullptr;
    int row_ = 0;
    NodeKind kind_ = NodeKind::Object;
    NodeColour foreColor_ = NodeColour::Ordinary;
    bool sorted_ = false;
    bool waitsForSorting_ = false;
    bool bold_ = false;
    bool expanded_ = false;
    bool checked_ = false;
    bool unfolds_ = false;
};

/// Is called for every change, before and after it where a widget needs both.
class BaumListener {
public:
    virtual ~BaumListener() = default;
    virtual void BeginReset() {}
    virtual void EndReset() {}
    virtual void BeginInsert(const BaumNode* /*parent*/, int /*row*/) {}
    virtual void EndInsert() {}
    virtual void BeginRemove(const BaumNode* /*parent*/, int /*row*/) {}
    virtual void EndRemove() {}
    /// Text, image, colour, boldness or check mark.
    virtual void Changed(const BaumNode&) {}
    /// Changed for any number of nodes at once.
    virtual void ManyChanged() {}
    virtual void ExpandedChanged(const BaumNode&) {}
    virtual void AllCollapsed() {}
    /// The selected node; null when nothing is selected any more.
    virtual void SelectedChanged(const BaumNode*) {}
    virtual void EnsureVisible(const BaumNode&) {}
};

class Baum {
public:
    Baum();
    ~Baum();
    Baum(const Baum&) = delete;
    Baum& operator=(const Baum&) = delete;

    /// Adds a node below `parent`, or a root when it is null. Returns null and adds nothing when
    /// one of this kind has the key.
    /// Nodes stay where they are in memory until they are removed.
    /// @param image  key of an icon; a literal or another text that outlives the tree
    BaumNode* Add(BaumNode* parent, std::string key, std::string text, std::string_view image,
                  NodeKind kind = NodeKind::Object);
    [[nodiscard]] BaumNode* Item(std::string_view key, NodeKind kind = NodeKind::Object) const;
    [[nodiscard]] BaumNode* Find(const NodeId& id) const { return Item(id.key, id.kind); }
    [[nodiscard]] bool Exist(std::string_view key, NodeKind kind = NodeKind::Object) const {
        return Item(key, kind) != nullptr;
    }
    [[nodiscard]] int Count() const;
    /// The top level in its order.
    [[nodiscard]] const std::vector<BaumNode*>& Roots() const;
    /// Removes a node with all nodes below it. If the selected node is among them, nothing is selected afterwards.
    void Remove(BaumNode& node);
    void Clear();

    /// The node stays in its place, also below a node that is Sorted.
    void SetText(BaumNode& node, std::string text);
    void SetImage(BaumNode& node, std::string_view image);
    void SetExpandedImage(BaumNode& node, std::string_view image);
    void SetForeColor(BaumNode& node, NodeColour color);
    void SetBold(BaumNode& node, bool bold);
    /// Sorts the children, and from now on enters new children by their texts.
    void SetSorted(BaumNode& node, bool sorted);
    void SetExpanded(BaumNode& node, bool expanded);
    void SetChecked(BaumNode& node, bool checked);
    /// Before the node is shown, or after its children were added.
    static void SetUnfolds(BaumNode& node, bool unfolds) { node.unfolds_ = unfolds; }
    void CollapseAll();

    [[nodiscard]] BaumNode* Selected() const;
    void Select(BaumNode* node);
    /// Expands all ancestors and asks the widget to scroll.
    void EnsureVisible(BaumNode& node);

    /// Null disconnects. Never owned.
    void SetListener(BaumListener* listener);

    /// While one lives, a large change is one reset for the listener, which begins with the first node that is added or
    /// removed. Sorting waits for the end: until then new children are last. A change of looks alone is reported by one
    /// ManyChanged. Nests.
    class Filling {
    public:
        explicit Filling(Baum& baum);
        ~Filling();
        Filling(const Filling&) = delete;
        Filling& operator=(const Filling&) = delete;

    private:
        Baum& baum_;
    };

private:
    struct State;
    std::unique_ptr<State> state_;
};
