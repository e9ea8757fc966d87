#pragma once

#include "arena.h"
#include "links.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace kestrel::model {

/// The elements of one id.
struct Bucket {
  std::u16string_view id;
  std::size_t hash;
  Bucket* next;
  LumoLinks* first;
  LumoLinks* last;
  /// The elements stand in document order.
  bool isOrdered;
};

/// Finds the elements of an id. Ids need not be unique. Buckets stay for as long as the arena does, so that
/// their text does too.
class IdIndex {
 public:
  explicit IdIndex(Arena& arena) : arena_(arena) {}

  /// Null where the id has never been in use.
  Bucket* find(std::u16string_view id) const;
  Bucket& findOrMake(std::u16string_view id);

  static void append(Bucket& bucket, LumoLinks& links);
  static void remove(LumoLinks& links);
  static void moveToFront(LumoLinks& links);

 private:
  void grow();

  Arena& arena_;
  std::vector<Bucket*> chains_;
  std::size_t count_ = 0;
};

}  // namespace kestrel::model
