#include "platform/script/machine.h"

#include <span>
#include <utility>
#include <vector>

#include "platform/script/convert.h"
#include "platform/script/fault.h"
#include "platform/script/operators.h"

namespace vorlane::platform::script {
namespace {

// The most bytes that all steps of an evaluation make together: some thousand
// joins of a long text are refused before anybody waits for them.
constexpr std::size_t kMostWork = std::size_t{64} << 20;

class Machine {
 public:
  explicit Machine(const Clock& clock) : present_(clock) {}

  Value Run(Program& program) {
    for (const Step& step : program.steps) Do(step, program);
    if (stack_.empty()) return {};
    return std::move(stack_.back());
  }

 private:
  void Do(const Step& step, Program& program) {
    switch (step.kind) {
      case Step::Kind::Push:
        // Each constant belongs to one step, which is done once.
        return Put(std::move(program.constants[step.constant]));
      case Step::Kind::Negate:
        return Put(Negative(Take()));
      case Step::Kind::Not:
        return Put(Inverse(Take()));
      case Step::Kind::Binary:
        return DoBinary(step);
      case Step::Kind::Call:
        return DoCall(step);
      case Step::Kind::CallUnknown:
        Raise(kTypeMismatch, step.name);
      case Step::Kind::Element:
        return DoElement(step);
      case Step::Kind::Member:
        Raise(kObjectRequired, step.name);
    }
  }

  void DoBinary(const Step& step) {
    const Value right = Take();
    Value left = Take();
    switch (BindingOf(step.op)) {
      case Binding::Comparison:
        if (step.op == Operator::Is) return Put(SameObject(left, right));
        return Put(Compare(step.op, left, right, {step.leftIsLiteral, step.rightIsLiteral}));
      case Binding::Concatenate:
        return Put(Concatenate(std::move(left), right));
      case Binding::Imp:
      case Binding::Eqv:
      case Binding::Xor:
      case Binding::Or:
      case Binding::And:
        return Put(Combine(step.op, left, right));
      default:
        return Put(Calculate(step.op, left, right));
    }
  }

  // Null counts as no text unless both are Null.
  static Value Concatenate(Value left, const Value& right) {
    if (left.Is(Kind::Null) && right.Is(Kind::Null)) return Null{};
    std::string text;
    if (left.Is(Kind::Text)) {
      text = std::move(left.As<std::string>());
    } else if (!left.Is(Kind::Null)) {
      text = ToText(left);
    }
    if (!right.Is(Kind::Null)) AppendText(right, text);
    return text;
  }

  void DoCall(const Step& step) {
    const FunctionRow& function = *step.function;
    if (step.count < function.least || step.count > function.most) {
      Raise(kArgumentCount, step.name);
    }
    Arguments arguments(Top(step.count), step.name, present_);
    Value result = function.withNull == WithNull::GivesNull && arguments.IsNull(0)
                       ? Value(Null{})
                       : function.call(arguments);
    Drop(step.count);
    Put(std::move(result));
  }

  void DoElement(const Step& step) {
    std::vector<std::int32_t> subscripts;
    for (const Value& subscript : Top(step.count)) subscripts.push_back(ToLong(subscript));
    Drop(step.count);
    const Value array = Take();
    if (!array.Is(Kind::Array)) Raise(kTypeMismatch, step.name);
    const Values& items = array.Items();
    const bool exists = subscripts.size() == 1 && subscripts[0] >= 0 &&
                        static_cast<std::size_t>(subscripts[0]) < items.size();
    if (!exists) Raise(kSubscript, step.name);
    Put(items[static_cast<std::size_t>(subscripts[0])]);
  }

  std::span<Value> Top(std::size_t count) { return std::span(stack_).last(count); }
  void Drop(std::size_t count) { stack_.resize(stack_.size() - count); }
  Value Take() {
    Value value = std::move(stack_.back());
    stack_.pop_back();
    return value;
  }

  void Put(Value value) {
    if (value.Is(Kind::Text)) {
      if (value.Text().size() > kLongestText) Raise(kOutOfTextSpace);
      Charge(value.Text().size());
    } else if (value.Is(Kind::Array)) {
      Charge(value.Items().size() * sizeof(Value));
    }
    stack_.push_back(std::move(value));
  }

  void Charge(std::size_t bytes) {
    work_ += bytes;
    if (work_ > kMostWork) Raise(kOutOfTextSpace);
  }

  std::vector<Value> stack_;
  std::size_t work_ = 0;
  Present present_;
};

}  // namespace

Value Run(Program program, const Clock& clock) { return Machine(clock).Run(program); }

}  // namespace vorlane::platform::script
