#include "libraries/filelib/source/directory/FileTreeNode.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace TarvikFilelib {
namespace {

TEST(FileTreeNodeTest, PathsLeadDownFromANode) {
    const FileTreeNode::Pointer root = FileTreeNode::newDir("root");
    root->insertChildDir("b");
    root->insertChildFile("/b//z.txt/");
    root->insertChildDir("b/c")->addChildFile("y");
    root->addChildFile("a");
    EXPECT_EQ(root->addChildDir("a"), root->find("a"));  // It stays a file.
    EXPECT_EQ(root->getAsString(1), " root/\n   a\n   b/\n     c/\n       y\n     z.txt\n");
    EXPECT_EQ(root->getTreeSize(), 6U);
    EXPECT_EQ(root->get("b/c")->get("y")->getPath(), "root/b/c/y");
    EXPECT_FALSE(root->have("a/y"));
    const FileTreeNode::Pointer child = root->get("b");
    EXPECT_TRUE(root->removeChild("b"));
    EXPECT_EQ(root->getTreeSize(), 2U);
    EXPECT_EQ(child->get("c")->getPath(), "b/c");
}

TEST(FileTreeNodeTest, FailuresSayWhatWasMissing) {
    const FileTreeNode::Pointer root = FileTreeNode::newDir("root");
    root->addChildFile("file");
    const auto failureOf = [](auto run) {
        try {
            run();
        } catch (const TarvikCorelib::Exception& failure) {
            return failure.getFullMessage(true);
        }
        return std::string();
    };
    EXPECT_EQ(failureOf([&] { (void)root->get("a/b"); }),
              R"(Get_NodeNotFound: Node "a/b" not found as child of "root")");
    EXPECT_EQ(
        failureOf([&] { root->insertChildFile("file/b"); }),
        R"(AddChild_CannotAddToFile: Trying to add child node "b" to parent node "root/file" - which is a file)");
    EXPECT_EQ(failureOf([&] { root->insertChildDir("a/b/c"); }),
              R"(InsertChild_NodeNotFound: Trying to insert under "a/b" - which doesn't exist)");
    EXPECT_EQ(failureOf([&] { root->insertChildDir("//"); }),
              R"(InsertChild_EmptyParameter: Parameter "path" is empty)");
}

TEST(SmartPointerTest, NothingIsFollowedAndNothingSharedIsDeleted) {
    using Pointer = SmartPointer<std::string>;
    EXPECT_THROW((void)*Pointer(), Pointer::NullPointer);
    EXPECT_THROW(Pointer(std::unique_ptr<std::string>()), Pointer::InvalidPointer);
    Pointer first = Pointer::make("text");
    Pointer second = first;
    EXPECT_THROW(first.remove(), Pointer::DeleteFailed);
    second = Pointer();
    first.remove();
    EXPECT_THROW(first.remove(), Pointer::NullPointer);
}

}  // namespace
}  // namespace TarvikFilelib
