#include "V7Doc/functions/FnReferences.h"

#include <algorithm>
#include <map>

#include "QVI/qvi/Markers.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/FnFunc2DTable.h"
#include "V7Doc/functions/Func2D.h"

namespace v7 {
namespace {

constexpr unsigned kMsgReferenceCycle = 33560;
constexpr unsigned kMsgReferenceChainTooLong = 33561;

// How many functions one evaluation may pass through by number. Real
// projects use one hop (a boundary condition to its function, a modifier);
// the bound keeps a long chain from exhausting the stack.
constexpr std::size_t kMaxChain = 32;

const Func2D* Lookup(const QVDocData& doc, FnReference r) {
  const Func2DTable* t = doc.FunctionList(r.list);
  if (!t || r.num == 0) return nullptr;
  auto it = t->Find(r.num);
  return it == t->end() ? nullptr : &*it;
}

std::wstring Describe(const std::vector<FnReference>& chain) {
  std::wstring out;
  for (const FnReference& r : chain) {
    if (!out.empty()) out += L" -> ";
    out += str::format(L"%s %s", FunctionListName(r.list), r.num);
  }
  return out;
}

// Depth-first walk over the references (an explicit stack: chains can be as
// long as the lists). `report` is called with the path from a function back
// to itself for every reference that closes a cycle, and with the path when
// it grows beyond kMaxChain.
class Walk {
 public:
  explicit Walk(const QVDocData& doc) : doc_(doc) {}

  template <class Report>
  void From(std::vector<FnReference> roots, const std::vector<FnReference>& rootPath,
            Report&& report) {
    stack_.clear();
    stack_.push_back({FnReference{}, std::move(roots), 0});
    while (!stack_.empty()) {
      Frame& f = stack_.back();
      if (f.next == f.refs.size()) {
        if (f.node.list != 0) state_[f.node] = kDone;
        stack_.pop_back();
        continue;
      }
      const FnReference n = f.refs[f.next++];
      const auto st = state_.find(n);
      if (st != state_.end() && st->second == kDone) continue;
      if (st != state_.end() && st->second == kOnPath) {
        std::vector<FnReference> cycle = Path(rootPath);
        cycle.erase(cycle.begin(), std::find(cycle.begin(), cycle.end(), n));
        cycle.push_back(n);
        report(kMsgReferenceCycle, cycle);
        continue;
      }
      const Func2D* fn = Lookup(doc_, n);
      if (!fn) {
        state_[n] = kDone;
        continue;
      }
      state_[n] = kOnPath;
      stack_.push_back({n, FnReferencesOf(*fn->Fn()), 0});
      if (stack_.size() - 1 + rootPath.size() > kMaxChain) {
        report(kMsgReferenceChainTooLong, Path(rootPath));
        stack_.back().refs.clear();
      }
    }
  }

  bool Done(FnReference r) const {
    const auto it = state_.find(r);
    return it != state_.end() && it->second == kDone;
  }

 private:
  enum State { kOnPath = 1, kDone = 2 };
  struct Frame {
    FnReference node;
    std::vector<FnReference> refs;
    std::size_t next;
  };

  std::vector<FnReference> Path(const std::vector<FnReference>& rootPath) const {
    std::vector<FnReference> path = rootPath;
    for (const Frame& f : stack_)
      if (f.node.list != 0) path.push_back(f.node);
    return path;
  }

  const QVDocData& doc_;
  std::map<FnReference, State> state_;
  std::vector<Frame> stack_;
};

gtl::status ChainStatus(unsigned id, const std::vector<FnReference>& chain, bool warning) {
  const FnReference& first = chain.front();
  std::vector<std::wstring> args = {str::to_wstring(first.num), FunctionListName(first.list)};
  if (id == kMsgReferenceChainTooLong) args.push_back(str::to_wstring(kMaxChain));
  args.push_back(Describe(chain));
  return gtl::status(id, std::move(args),
                     warning ? gtl::status::severity::warning : gtl::status::severity::error);
}

}  // namespace

std::vector<FnReference> FnReferencesOf(const FnImpl& fn) {
  std::vector<FnReference> refs;
  if (const auto* r = dynamic_cast<const IFnReferences*>(&fn)) r->GetFnReferences(refs);
  std::erase_if(refs, [](const FnReference& r) { return r.num == 0; });
  return refs;
}

gtl::status CheckFnReferences(const FnImpl& fn, const QVDocData& doc) {
  gtl::status first;
  Walk walk(doc);
  walk.From(FnReferencesOf(fn), {}, [&](unsigned id, const std::vector<FnReference>& chain) {
    gtl::keep_first_failure(first, ChainStatus(id, chain, false));
  });
  return first;
}

gtl::status CheckFnReferences(const FnImpl& fn) {
  const QVDocumentHandle& doc = QVDocumentGetCurrentHandle();
  return doc ? CheckFnReferences(fn, *doc) : gtl::status();
}

void FindFnReferenceCycles(const QVDocData& doc, std::vector<gtl::status>& problems) {
  Walk walk(doc);
  for (GID list = container::FirstFunctionList; list <= container::LastFunctionList; ++list) {
    const Func2DTable* t = doc.FunctionList(list);
    if (!t) continue;
    for (auto it = t->begin(); it != t->end(); ++it) {
      const FnReference self{list, it.ID()};
      if (walk.Done(self)) continue;
      walk.From({self}, {}, [&](unsigned id, const std::vector<FnReference>& chain) {
        problems.push_back(ChainStatus(id, chain, true));
      });
    }
  }
}

double CalculateFunc2D(GID list, int num, const double* x, const double* y) {
  const Func2D* f = FindFunc2D(list, num);
  if (!f) return qvi::kNoValue;
  // The functions being evaluated on this thread, outermost first.
  thread_local std::vector<FnReference> active;
  const FnReference self{list, static_cast<GID>(num)};
  if (active.size() >= kMaxChain || std::find(active.begin(), active.end(), self) != active.end())
    return qvi::kNoValue;
  active.push_back(self);
  struct Pop {
    ~Pop() { active.pop_back(); }
  } pop;
  return f->Fn()->Calculate(x, y);
}

}  // namespace v7
