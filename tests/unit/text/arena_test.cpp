#include "text/arena.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace fdmorph {
namespace {

constexpr int kManyObjects = 1000;  // more than fit into one block

struct Counted {
  Counted() { ++living; }
  ~Counted() { --living; }
  int value = 7;
  static int living;
};
int Counted::living = 0;

TEST(Arena, ObjectsBeginWithTheirDefaultValues) {
  Arena<Counted> arena;
  EXPECT_EQ(arena.create()->value, 7);
}

TEST(Arena, EachObjectHasItsOwnAddress) {
  Arena<Counted> arena;
  std::set<Counted*> places;
  for (int i = 0; i < kManyObjects; ++i) places.insert(arena.create());
  EXPECT_EQ(places.size(), static_cast<std::size_t>(kManyObjects));
}

TEST(Arena, AddressesStayTheSameWhenMoreObjectsFollow) {
  Arena<Counted> arena;
  std::vector<Counted*> objects;
  for (int i = 0; i < kManyObjects; ++i) {
    objects.push_back(arena.create());
    objects.back()->value = i;
  }
  for (int i = 0; i < kManyObjects; ++i) EXPECT_EQ(objects[static_cast<std::size_t>(i)]->value, i);
}

TEST(Arena, ClearDestroysAllObjects) {
  Arena<Counted> arena;
  for (int i = 0; i < kManyObjects; ++i) arena.create();
  arena.clear();
  EXPECT_EQ(Counted::living, 0);
}

TEST(Arena, ObjectsAreDestroyedWithTheArena) {
  {
    Arena<Counted> arena;
    arena.create();
  }
  EXPECT_EQ(Counted::living, 0);
}

TEST(Arena, CanBeUsedAgainAfterClear) {
  Arena<Counted> arena;
  arena.create()->value = 1;
  arena.clear();
  EXPECT_EQ(arena.create()->value, 7);
}

}  // namespace
}  // namespace fdmorph
