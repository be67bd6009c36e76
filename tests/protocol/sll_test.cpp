#include "protocol/sll.h"

#include <gtest/gtest.h>

#include <vector>

namespace alm {
namespace {

std::vector<void*> walk(const sll* list) {
    std::vector<void*> out;
    sllIterator it;
    sllStartIterator(list, it);
    while (sllNextIterator(it)) out.push_back(sllGetIteratorValue(it));
    return out;
}

TEST(Sll, AppendGetNextAndTheIteratorsRestart) {
    int a = 1, b = 2, c = 3, d = 4;
    auto list = sllCreate();
    EXPECT_TRUE(walk(list.get()).empty());
    for (int* p : {&a, &b, &a, static_cast<int*>(nullptr), &c}) sllAddNode(list.get(), p);
    EXPECT_EQ(walk(list.get()), (std::vector<void*>{&a, &b, &a, nullptr, &c}));
    EXPECT_EQ(sllGetFirst(list.get()), &a);
    // The node after the first occurrence; nothing after the tail or an absent value.
    EXPECT_EQ(sllGetNext(list.get(), &b), &a);
    EXPECT_EQ(sllGetNext(list.get(), &a), &b);
    EXPECT_EQ(sllGetNext(list.get(), &c), nullptr);
    EXPECT_EQ(sllGetNext(list.get(), &d), nullptr);
    // Run off the end: the next step starts over at the first node.
    sllIterator it;
    sllStartIterator(list.get(), it);
    for (int i = 0; i < 5; ++i) ASSERT_NE(sllNextIterator(it), 0);
    EXPECT_EQ(sllNextIterator(it), 0);
    ASSERT_NE(sllNextIterator(it), 0);
    EXPECT_EQ(sllGetIteratorValue(it), &a);
}

TEST(Sll, RemoveTakesTheFirstOccurrenceAndRelinksTheTail) {
    struct Case {
        int remove;  // index into vals, 3 for a value not in the list
        std::vector<int> left;
    };
    const std::vector<Case> cases = {{0, {1, 0, 2}}, {1, {0, 0, 2}}, {2, {0, 1, 0}}, {3, {0, 1, 0, 2}}};
    for (const Case& tc : cases) {
        int vals[4] = {10, 11, 12, 13};
        int extra = 14;
        auto list = sllCreate();
        for (int i : {0, 1, 0, 2}) sllAddNode(list.get(), &vals[i]);
        sllRemoveNode(list.get(), &vals[tc.remove]);
        // A later append must link after the (possibly new) tail.
        sllAddNode(list.get(), &extra);
        std::vector<void*> want;
        for (int i : tc.left) want.push_back(&vals[i]);
        want.push_back(&extra);
        EXPECT_EQ(walk(list.get()), want) << "removed " << tc.remove;
    }
    int a = 1;
    auto list = sllCreate();
    sllAddNode(list.get(), &a);
    sllRemoveNode(list.get(), &a);
    EXPECT_EQ(list->first, nullptr);
    EXPECT_EQ(list->last, nullptr);
    sllAddNode(list.get(), &a);
    EXPECT_EQ(walk(list.get()), (std::vector<void*>{&a}));
}

TEST(Sll, NullListsAreHarmless) {
    int a = 1;
    sllAddNode(nullptr, &a);
    sllRemoveNode(nullptr, &a);
    EXPECT_EQ(sllGetFirst(nullptr), nullptr);
    EXPECT_EQ(sllGetNext(nullptr, &a), nullptr);
    sllDestroy(nullptr);
    EXPECT_TRUE(walk(nullptr).empty());
}

TEST(Sll, LongListsDestroyWithoutRecursion) {
    auto list = sllCreate();
    static char value;
    for (int i = 0; i < 300000; ++i) sllAddNode(list.get(), &value);
    sllDestroy(std::move(list));
    EXPECT_EQ(list, nullptr);
}

}  // namespace
}  // namespace alm
