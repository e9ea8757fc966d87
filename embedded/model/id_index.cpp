#include "id_index.h"

#include <algorithm>
#include <functional>
#include <string_view>

namespace kestrel::model {
namespace {

constexpr std::size_t firstChains = 64;

std::size_t hashOf(std::u16string_view id) { return std::hash<std::u16string_view>()(id); }

Bucket* search(Bucket* chain, std::u16string_view id, std::size_t hash) {
  while (chain != nullptr && (chain->hash != hash || chain->id != id)) chain = chain->next;
  return chain;
}

}  // namespace

Bucket* IdIndex::find(std::u16string_view id) const {
  if (chains_.empty()) return nullptr;
  std::size_t const hash = hashOf(id);
  return search(chains_[hash % chains_.size()], id, hash);
}

Bucket& IdIndex::findOrMake(std::u16string_view id) {
  if (count_ >= chains_.size()) grow();
  std::size_t const hash = hashOf(id);
  Bucket*& chain = chains_[hash % chains_.size()];
  if (Bucket* const found = search(chain, id, hash)) return *found;
  std::u16string_view const kept(arena_.copy(id), id.size());
  chain = &arena_.make<Bucket>(kept, hash, chain, nullptr, nullptr, true);
  ++count_;
  return *chain;
}

void IdIndex::append(Bucket& bucket, LumoLinks& links) {
  links.bucket = &bucket;
  links.previousInBucket = bucket.last;
  links.nextInBucket = nullptr;
  (bucket.last == nullptr ? bucket.first : bucket.last->nextInBucket) = &links;
  bucket.last = &links;
}

void IdIndex::remove(LumoLinks& links) {
  Bucket& bucket = *links.bucket;
  (links.previousInBucket == nullptr ? bucket.first : links.previousInBucket->nextInBucket) =
      links.nextInBucket;
  (links.nextInBucket == nullptr ? bucket.last : links.nextInBucket->previousInBucket) =
      links.previousInBucket;
  if (bucket.first == bucket.last) bucket.isOrdered = true;
  links.bucket = nullptr;
}

void IdIndex::moveToFront(LumoLinks& links) {
  Bucket& bucket = *links.bucket;
  remove(links);
  links.bucket = &bucket;
  links.previousInBucket = nullptr;
  links.nextInBucket = bucket.first;
  (bucket.first == nullptr ? bucket.last : bucket.first->previousInBucket) = &links;
  bucket.first = &links;
}

void IdIndex::grow() {
  std::vector<Bucket*> chains(std::max(chains_.size() * 2, firstChains));
  for (Bucket* chain : chains_) {
    while (chain != nullptr) {
      Bucket* const next = chain->next;
      Bucket*& place = chains[chain->hash % chains.size()];
      chain->next = place;
      place = chain;
      chain = next;
    }
  }
  chains_.swap(chains);
}

}  // namespace kestrel::model
