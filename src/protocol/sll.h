// The one container: an ordered list of untyped value pointers.
//
// The list owns its nodes only; values are never copied, compared by content
// or released by the list. Values are compared by pointer identity and may
// occur more than once. Lists are made by sllCreate and owned through the
// returned std::unique_ptr; sllDestroy (or simply dropping the pointer)
// releases the nodes, iteratively, so long lists are safe to drop.
//
// Every operation accepts a null list and then does nothing (or answers null),
// except that an iterator started on a null list never stands on a node.
#pragma once

#include <memory>

namespace alm {

struct sllNode {
    void* data = nullptr;
    std::unique_ptr<sllNode> next;
};

class sll {
public:
    sll() = default;
    ~sll();
    sll(const sll&) = delete;
    sll& operator=(const sll&) = delete;

    std::unique_ptr<sllNode> first;
    sllNode* last = nullptr;
};

struct sllIterator {
    const sll* list = nullptr;
    sllNode* next = nullptr;  // the node it stands on; null before the first step
};

std::unique_ptr<sll> sllCreate();
void sllDestroy(std::unique_ptr<sll> list);
void sllAddNode(sll* list, void* value);
void sllRemoveNode(sll* list, const void* value);
void* sllGetFirst(const sll* list);
// Successor of the first node holding value; null when that node is the tail
// or the value is absent. Searches from the head on every call.
void* sllGetNext(const sll* list, const void* value);

void sllStartIterator(const sll* list, sllIterator& it);
// Steps to the next node (the first one from the start position); non-zero
// while the iterator stands on a node. Past the tail it is back at the start.
int sllNextIterator(sllIterator& it);
void* sllGetIteratorValue(const sllIterator& it);

}  // namespace alm
