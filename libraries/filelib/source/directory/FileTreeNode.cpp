#include "libraries/filelib/source/directory/FileTreeNode.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/filelib/source/directory/FileTreeNodeMessages.h"

#include <algorithm>
#include <new>
#include <vector>

namespace TarvikFilelib {

using TarvikCorelib::here;
using TarvikCorelib::made;

namespace {

std::string_view withoutSlashesAtEnd(std::string_view path) {
    return path.substr(0, path.find_last_not_of('/') + 1);
}

}  // namespace

// Down and up by the parents, without recursion: a tree may be deeper than the stack.
FileTreeNode::~FileTreeNode() {
    FileTreeNode* node = this;
    while (node != this || !children.empty()) {
        if (node->children.empty()) {
            node = node->parent;
            continue;
        }
        const auto first = node->children.begin();
        FileTreeNode* const child = first->second.get();
        if (first->second.getCount() == 1 && !child->children.empty()) {
            node = child;
        } else {
            child->parent = nullptr;
            node->children.erase(first);
        }
    }
}

std::string FileTreeNode::getPath() const {
    std::vector<const FileTreeNode*> way;
    for (const FileTreeNode* node = this; node != nullptr; node = node->parent)
        way.push_back(node);
    if (way.back()->name.empty()) way.pop_back();
    std::reverse(way.begin(), way.end());
    std::string path;
    for (const FileTreeNode* node : way)
        path.append(path.empty() ? "" : "/").append(node->name);
    return path;
}

std::string FileTreeNode::getAsString(std::size_t indent) const {
    std::string text;
    std::vector<const FileTreeNode*> open = {this};  // The next one last.
    std::vector<std::size_t> depths = {indent};
    while (!open.empty()) {
        const FileTreeNode* const node = open.back();
        const std::size_t depth = depths.back();
        open.pop_back();
        depths.pop_back();
        text.append(depth, ' ').append(node->name).append(node->isDir() ? "/\n" : "\n");
        const auto before = static_cast<std::ptrdiff_t>(open.size());
        for (const auto& child : node->children)
            open.push_back(child.second.get());
        std::reverse(open.begin() + before, open.end());
        depths.resize(open.size(), depth + 2);
    }
    return text;
}

bool FileTreeNode::removeChild(const std::string& childName) {
    const auto found = children.find(childName);
    if (found == children.end()) return false;
    // Modulo arithmetic: this takes the size of the child off.
    countNodes(0 - found->second->treeSize);
    found->second->parent = nullptr;
    children.erase(found);
    return true;
}

FileTreeNode::Pointer FileTreeNode::find(std::string_view path) const {
    const FileTreeNode* node = this;
    Pointer found;
    while (true) {
        path.remove_prefix(std::min(path.find_first_not_of('/'), path.size()));
        if (path.empty()) return found;
        const std::string_view first = path.substr(0, path.find('/'));
        const auto child = node->children.find(first);
        if (child == node->children.end()) return {};
        found = child->second;
        node = found.get();
        path.remove_prefix(first.size());
    }
}

FileTreeNode::Pointer FileTreeNode::get(std::string_view path) const {
    Pointer found = find(path);
    if (found.isNull())
        throw made<Get_NodeNotFound>(messages::nodeNotFound, here(), std::string(path), getPath());
    return found;
}

FileTreeNode::Pointer FileTreeNode::newNode(const std::string& name, Kind kind) {
    try {
        return Pointer::make(name, kind);
    } catch (const std::bad_alloc&) {
        throw made<OutOfMemory>(messages::nodeOutOfMemory, here());
    }
}

FileTreeNode::Pointer FileTreeNode::addChild(const std::string& childName, Kind childKind) {
    if (kind == File)
        throw made<AddChild_CannotAddToFile>(messages::cannotAddToFile, here(), childName,
                                             getPath());
    if (const auto found = children.find(childName); found != children.end()) return found->second;
    Pointer child = newNode(childName, childKind);
    children.emplace(child->name, child);
    child->parent = this;
    countNodes(1);
    return child;
}

FileTreeNode::Pointer FileTreeNode::insertChild(const std::string& path, Kind childKind) {
    const std::string_view whole = withoutSlashesAtEnd(path);
    if (whole.empty())
        throw made<InsertChild_EmptyParameter>(messages::insertEmptyParameter, here(), "path");
    const std::string_view childName = whole.substr(whole.rfind('/') + 1);
    const std::string_view above =
        withoutSlashesAtEnd(whole.substr(0, whole.size() - childName.size()));
    if (above.empty()) return addChild(std::string(childName), childKind);
    const Pointer under = find(above);
    if (under.isNull())
        throw made<InsertChild_NodeNotFound>(messages::insertNodeNotFound, here(),
                                             std::string(above));
    return under->addChild(std::string(childName), childKind);
}

void FileTreeNode::countNodes(std::size_t added) {
    for (FileTreeNode* node = this; node != nullptr; node = node->parent)
        node->treeSize += added;
}

}  // namespace TarvikFilelib
