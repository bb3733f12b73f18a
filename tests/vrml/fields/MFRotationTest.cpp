#include "vrml/fields/MFRotation.h"

#include <gtest/gtest.h>

namespace vrml {
namespace {

using Value = SFRotation::Value;

TEST(MFRotation, normalises_each_axis_as_it_goes_in) {
  const float flat[] = {0, 0, 2, 1, 0, 0, 0, 2};
  for (const bool entryForm : {false, true}) {
    MFRotation field;
    if (entryForm) field.addElement(std::make_unique<SFRotation>());
    field.clear();
    ASSERT_EQ(field.isPacked(), !entryForm);
    field.setValues(2, flat);
    field.addValue(0, 3, 4, 3);
    field.insertValue(0, Value{5, 0, 0, 4});
    field.replaceValue(1, 0, -7, 0, 5);
    ASSERT_EQ(field.getSize(), 4);
    EXPECT_EQ(field.get1Value(0), (Value{1, 0, 0, 4}));
    EXPECT_EQ(field.get1Value(1), (Value{0, -1, 0, 5}));
    EXPECT_EQ(field.get1Value(2), (Value{0, 0, 0, 2}));
    EXPECT_EQ(field.get1Value(3), (Value{0, 0.6f, 0.8f, 3}));
  }
}

TEST(MFRotation, takes_bulk_values_that_were_normalised_before) {
  MFRotation field;
  field.packed().push_back(SFRotation::stored({0, 2, 0, 1}));
  EXPECT_EQ(field.getElement(0)->getValue(), (Value{0, 1, 0, 1}));
}

}  // namespace
}  // namespace vrml
