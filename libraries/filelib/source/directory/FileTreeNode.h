/// A directory tree as a tree of names.
#pragma once

#include "libraries/filelib/source/directory/SmartPointer.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace TarvikFilelib {

/// A file or a directory with a name, and the nodes in it. Nothing here looks at a disk.
///
/// Paths lead down from a node: "a/b" is the child "b" of its child "a". Slashes at the ends and
/// doubled ones count for nothing; "." and ".." are names like others. A node belongs to its parent
/// and to whoever else points to it: without its parent it is the root of a tree of its own. A tree
/// may be of any depth, and belongs to one thread at a time.
///
/// Each node keeps the size of its tree. So asking for it is free, and adding or removing a node
/// takes a step for each level above it.
///
///     const FileTreeNode::Pointer root = FileTreeNode::newDir("srv");
///     root->addChildDir("log");
///     root->insertChildFile("log/a.txt");
///     root->get("log/a.txt")->getPath();  // "srv/log/a.txt"
///     root->getTreeSize();                // 3
///     root->getAsString(0);               // "srv/\n  log/\n    a.txt\n"
class FileTreeNode {
public:
    using OutOfMemory = TarvikCorelib::NamedException<FileTreeNode, "OutOfMemory">;
    using Get_NodeNotFound = TarvikCorelib::NamedException<FileTreeNode, "Get_NodeNotFound">;
    using AddChild_CannotAddToFile =
        TarvikCorelib::NamedException<FileTreeNode, "AddChild_CannotAddToFile">;
    using InsertChild_NodeNotFound =
        TarvikCorelib::NamedException<FileTreeNode, "InsertChild_NodeNotFound">;
    using InsertChild_EmptyParameter =
        TarvikCorelib::NamedException<FileTreeNode, "InsertChild_EmptyParameter">;

    enum Kind : std::int32_t { File = 0, Directory = 1 };

    using Pointer = SmartPointer<FileTreeNode>;
    /// By name, in byte order. The keys are the names of the nodes themselves.
    using Children = std::map<std::string_view, Pointer>;

    /// A root without children. Throws `OutOfMemory`.
    static Pointer newFile(const std::string& name) { return newNode(name, File); }
    static Pointer newDir(const std::string& name) { return newNode(name, Directory); }

    FileTreeNode(std::string name, Kind kind) : name(std::move(name)), kind(kind) {}
    FileTreeNode(const FileTreeNode&) = delete;
    FileTreeNode& operator=(const FileTreeNode&) = delete;
    ~FileTreeNode();

    const std::string& getName() const { return name; }
    Kind getKind() const { return kind; }
    bool isDir() const { return kind == Directory; }
    /// Null for a root.
    const FileTreeNode* getParent() const { return parent; }
    /// The number of nodes in the tree: this one and all below.
    std::size_t getTreeSize() const { return treeSize; }
    const Children& getChildren() const { return children; }
    /// The names from the root to this node with "/" between them. The root's own is left out if it
    /// is empty.
    std::string getPath() const;
    /// One line for each node of the tree: `indent` blanks and two more for each level, the name, a
    /// "/" if it is a directory, a line feed. Children stand in byte order below their parent.
    std::string getAsString(std::size_t indent) const;

    /// Adds a child and returns it; if there is one of that name it is returned as it is. Throws
    /// `AddChild_CannotAddToFile`, or `OutOfMemory`.
    Pointer addChildDir(const std::string& childName) { return addChild(childName, Directory); }
    Pointer addChildFile(const std::string& childName) { return addChild(childName, File); }
    /// The same for the last name of the path, under the node that the names before it lead to:
    /// `InsertChild_NodeNotFound` if there is none, `InsertChild_EmptyParameter` without any name.
    Pointer insertChildDir(const std::string& path) { return insertChild(path, Directory); }
    Pointer insertChildFile(const std::string& path) { return insertChild(path, File); }
    /// Returns false if there is no child of that name.
    bool removeChild(const std::string& childName);

    /// The node that the path leads to. A null pointer if there is none, and for an empty path.
    Pointer find(std::string_view path) const;
    /// Throws `Get_NodeNotFound`.
    Pointer get(std::string_view path) const;
    bool have(std::string_view path) const { return !find(path).isNull(); }

private:
    static Pointer newNode(const std::string& name, Kind kind);
    Pointer addChild(const std::string& childName, Kind childKind);
    Pointer insertChild(const std::string& path, Kind childKind);
    void countNodes(std::size_t added);

    const std::string name;
    FileTreeNode* parent = nullptr;
    const Kind kind;
    std::size_t treeSize = 1;
    Children children;
};

}  // namespace TarvikFilelib
