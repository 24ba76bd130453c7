// A variable that has another value for a while.
#pragma once

#include <utility>

namespace quorrel {

/// Sets `variable` and gives it its value back at the end of the scope, however that is left. A
/// Property is a variable too.
template <typename Value, typename Variable>
class Meanwhile {
  public:
    Meanwhile(Variable& variable, Value value)
        : variable_(variable), before_(static_cast<const Value&>(variable)) {
        variable_ = std::move(value);
    }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;
    ~Meanwhile() { variable_ = std::move(before_); }

  private:
    Variable& variable_;
    Value before_;
};

template <typename Value, typename Variable>
Meanwhile(Variable&, Value) -> Meanwhile<Value, Variable>;

}  // namespace quorrel
