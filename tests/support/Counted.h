// A concrete codec object that records its own deletion, so a test can prove that an
// owner deletes every object exactly once, and in which order. Every object, clones made
// by the library included, gets a fresh id.
//
//   typedef rvatest::Counted<DtmfCodecConfig, CodecConfig> CountedCodec;
//   list.add(new CountedCodec);  ...  EXPECT_EQ(1, CountedCodec::deletionsOf(id));
#pragma once

#include <gtest/gtest.h>

#include <typeinfo>
#include <vector>

namespace rvatest {

template <typename Concrete, typename Interface>
class Counted : public Concrete {
public:
    Counted() : mId(++lastId) {}
    Counted(const Counted& other) : Concrete(other), mId(++lastId) {}
    ~Counted() override { deleted.push_back(mId); }
    Interface* clone() const noexcept override { return new Counted(*this); }

    static inline int lastId = 0;                 // id of the most recently made object
    static inline std::vector<int> deleted = {};  // ids in order of deletion
    const int mId;
};

// `copy` is a distinct object of the same dynamic type that compares equal to `original`.
template <typename Interface>
void expectClone(const Interface* original, const Interface* copy) {
    ASSERT_TRUE(copy != nullptr && copy != original && *copy == *original && typeid(*copy) == typeid(*original));
}

}  // namespace rvatest
