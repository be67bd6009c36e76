// The singly linked list of untyped values.
#include "protocol/sll.h"

#include <utility>

namespace alm {

sll::~sll() {
    // Unlink one node at a time: the default recursive release of a long
    // chain of unique_ptrs would exhaust the stack.
    while (first) first = std::move(first->next);
}

std::unique_ptr<sll> sllCreate() { return std::make_unique<sll>(); }

void sllDestroy(std::unique_ptr<sll> list) { list.reset(); }

void sllAddNode(sll* list, void* value) {
    if (!list) return;
    auto node = std::make_unique<sllNode>();
    node->data = value;
    sllNode* raw = node.get();
    if (list->last)
        list->last->next = std::move(node);
    else
        list->first = std::move(node);
    list->last = raw;
}

void sllRemoveNode(sll* list, const void* value) {
    if (!list) return;
    sllNode* prev = nullptr;
    for (sllNode* cur = list->first.get(); cur; prev = cur, cur = cur->next.get()) {
        if (cur->data != value) continue;
        std::unique_ptr<sllNode>& owner = prev ? prev->next : list->first;
        if (cur == list->last) list->last = prev;
        owner = std::move(cur->next);  // releases cur
        return;
    }
}

void* sllGetFirst(const sll* list) {
    if (!list || !list->first) return nullptr;
    return list->first->data;
}

void* sllGetNext(const sll* list, const void* value) {
    if (!list) return nullptr;
    for (const sllNode* cur = list->first.get(); cur; cur = cur->next.get()) {
        if (cur->data == value) return cur->next ? cur->next->data : nullptr;
    }
    return nullptr;
}

void sllStartIterator(const sll* list, sllIterator& it) {
    it.list = list;
    it.next = nullptr;
}

int sllNextIterator(sllIterator& it) {
    if (!it.list) return 0;
    it.next = it.next ? it.next->next.get() : it.list->first.get();
    return it.next != nullptr;
}

void* sllGetIteratorValue(const sllIterator& it) { return it.next ? it.next->data : nullptr; }

}  // namespace alm
