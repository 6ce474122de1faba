// The increment and decrement operators shared by the timeline walkers.
#pragma once

namespace Krolle {

/// Gives a walker its `++` and `--` in both forms from its `advance()` and
/// `retreat()`, which return `Self&`. A backward walker takes this base once more for
/// its own type, so that its operators return it rather than the forward type.
template <class Self> class WalkSteps
{
public:
    Self& operator++() { return self().advance(); }
    Self operator++(int)
    {
        Self before(self());
        self().advance();
        return before;
    }
    Self& operator--() { return self().retreat(); }
    Self operator--(int)
    {
        Self before(self());
        self().retreat();
        return before;
    }

private:
    Self& self() { return static_cast<Self&>(*this); }
};

} // namespace Krolle
