// A bar with a thumb over a range of 16-bit whole numbers.
#pragma once

#include <cstdint>

#include "controls/control.h"

namespace nerolith::controls {

/// The range lies between min and max, whichever is larger. Events:
/// - value set from code to another value: change. Outside the range: fails, nothing changes.
/// - min or max moved past the value: the value follows to the nearest end, and change is raised.
/// - the user drags the thumb: scroll for each value under the thumb, then change once at release
///   (also when the thumb was let go where it was taken up).
/// - the user clicks the track or uses keys: change.
class ScrollBar : public Control {
 public:
  std::int16_t min() const { return min_; }
  void setMin(std::int16_t min);
  std::int16_t max() const { return max_; }
  void setMax(std::int16_t max);

  std::int16_t value() const { return value_; }
  /// Throws base::Failure outside the range.
  void setValue(std::int16_t value);

  std::int16_t smallChange() const { return smallChange_; }
  void setSmallChange(std::int16_t step) { assign(smallChange_, step); }
  std::int16_t largeChange() const { return largeChange_; }
  void setLargeChange(std::int16_t step) { assign(largeChange_, step); }

  /// A word at the bar's end that says what happens there ("mix"); empty: nothing is marked.
  const std::string& endMark() const { return endMark_; }
  void setEndMark(std::string mark) { assign(endMark_, std::move(mark)); }

  base::Signal<> scroll;
  base::Signal<> change;

  /// The thumb is dragged over `value` (held to the range).
  void userDrag(int value);
  /// The thumb was let go.
  void userRelease();
  /// A click on the track or a key moved the thumb to `value` (held to the range).
  void userMove(int value);

 private:
  std::int16_t held(int value) const;
  void followRange();

  std::string endMark_;
  std::int16_t min_ = 0;
  std::int16_t max_ = 32767;
  std::int16_t value_ = 0;
  std::int16_t smallChange_ = 1;
  std::int16_t largeChange_ = 1;
};

}  // namespace nerolith::controls
