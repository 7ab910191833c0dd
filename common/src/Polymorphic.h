// Internal: helpers for the polymorphic objects the records compare and own.
#ifndef TESSEL_RVA_POLYMORPHIC_H
#define TESSEL_RVA_POLYMORPHIC_H

#include <memory>
#include <typeinfo>
#include <vector>

namespace tessel {
namespace rva {

// `object` as a `Derived`, or null when it is not one. The exact type, by far the usual
// case, costs one type_info comparison; only other types pay for dynamic_cast.
template <typename Derived, typename Base>
const Derived* asDerived(const Base& object) {
    return typeid(object) == typeid(Derived) ? static_cast<const Derived*>(&object)
                                             : dynamic_cast<const Derived*>(&object);
}

// Deletes every owned object, first to last, then empties the vector (its storage kept).
template <typename T>
void deleteInOrder(std::vector<std::unique_ptr<T>>& owned) {
    for (std::unique_ptr<T>& object : owned) {
        object.reset();
    }
    owned.clear();
}

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_POLYMORPHIC_H
