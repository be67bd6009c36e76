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

struct Values {
    int a = 1, b = 2, c = 3, d = 4;
};

TEST(Sll, AppendKeepsOrderAndDuplicatesGetNextTakesTheFirstOccurrence) {
    Values v;
    auto list = sllCreate();
    for (int* p : {&v.a, &v.b, &v.a, static_cast<int*>(nullptr), &v.c}) sllAddNode(list.get(), p);
    EXPECT_EQ(walk(list.get()), (std::vector<void*>{&v.a, &v.b, &v.a, nullptr, &v.c}));
    EXPECT_EQ(sllGetFirst(list.get()), &v.a);
    EXPECT_EQ(list->last->data, &v.c);
    EXPECT_EQ(sllGetNext(list.get(), &v.a), &v.b);
    EXPECT_EQ(sllGetNext(list.get(), &v.b), &v.a);
    EXPECT_EQ(sllGetNext(list.get(), &v.c), nullptr);  // tail
    EXPECT_EQ(sllGetNext(list.get(), &v.d), nullptr);  // absent
}

TEST(Sll, RemoveTakesTheFirstOccurrenceEmptiesAndAppendRefills) {
    Values v;
    auto list = sllCreate();
    for (int* p : {&v.a, &v.b, &v.a}) sllAddNode(list.get(), p);
    sllRemoveNode(list.get(), &v.d);  // absent: nothing changes
    sllRemoveNode(list.get(), &v.a);  // the first occurrence only
    EXPECT_EQ(walk(list.get()), (std::vector<void*>{&v.b, &v.a}));
    sllRemoveNode(list.get(), &v.b);
    sllRemoveNode(list.get(), &v.a);
    EXPECT_EQ(list->first, nullptr);
    EXPECT_EQ(list->last, nullptr);
    EXPECT_EQ(sllGetFirst(list.get()), nullptr);
    sllAddNode(list.get(), &v.b);
    EXPECT_EQ(list->first.get(), list->last);
    EXPECT_EQ(walk(list.get()), (std::vector<void*>{&v.b}));
}

TEST(Sll, RemoveAtEachPositionRelinks) {
    struct Case {
        int removeIndex;
        std::vector<int> left;
    };
    for (const Case& tc : std::vector<Case>{{0, {1, 2}}, {1, {0, 2}}, {2, {0, 1}}}) {
        int vals[3] = {10, 11, 12};
        int extra = 13;
        auto list = sllCreate();
        for (int& x : vals) sllAddNode(list.get(), &x);
        sllRemoveNode(list.get(), &vals[tc.removeIndex]);
        // A later append must link after the (possibly new) tail.
        sllAddNode(list.get(), &extra);
        std::vector<void*> want;
        for (int i : tc.left) want.push_back(&vals[i]);
        want.push_back(&extra);
        EXPECT_EQ(walk(list.get()), want) << "removed index " << tc.removeIndex;
        EXPECT_EQ(list->last->data, &extra);
    }
}

TEST(Sll, NullListsAreHarmless) {
    Values v;
    sllAddNode(nullptr, &v.a);
    sllRemoveNode(nullptr, &v.a);
    EXPECT_EQ(sllGetFirst(nullptr), nullptr);
    EXPECT_EQ(sllGetNext(nullptr, &v.a), nullptr);
    sllDestroy(nullptr);
    sllIterator it;
    sllStartIterator(nullptr, it);
    EXPECT_EQ(sllNextIterator(it), 0);
    EXPECT_EQ(sllGetIteratorValue(it), nullptr);
}

TEST(Sll, IteratorOnEmptyListAndRestartAfterTheEnd) {
    auto list = sllCreate();
    sllIterator it;
    sllStartIterator(list.get(), it);
    EXPECT_EQ(sllNextIterator(it), 0);
    EXPECT_EQ(sllGetIteratorValue(it), nullptr);

    Values v;
    sllAddNode(list.get(), &v.a);
    sllAddNode(list.get(), &v.b);
    sllStartIterator(list.get(), it);
    ASSERT_NE(sllNextIterator(it), 0);
    ASSERT_NE(sllNextIterator(it), 0);
    EXPECT_EQ(sllNextIterator(it), 0);
    // Run off the end: the next step starts over at the first node.
    ASSERT_NE(sllNextIterator(it), 0);
    EXPECT_EQ(sllGetIteratorValue(it), &v.a);
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
