// Which type encodings count as the same call.

#include "objc/encoding_compare.hpp"

#include <gtest/gtest.h>

namespace objc {
namespace {

/// As the declarations of another platform are compared; most of it does not depend on the integers.
bool SameEncoding(const char *expected, const char *found) {
    return objc::SameEncoding(expected, found, Integers::kLoose);
}

TEST(SameEncoding, OffsetsAndQualifiersDoNotCount) {
    EXPECT_TRUE(SameEncoding("v@:@", "v24@0:8@16"));
    EXPECT_TRUE(SameEncoding("v@:", "Vv16@0:8"));
    EXPECT_TRUE(SameEncoding("r*@:", "r*16@0:8"));
    EXPECT_TRUE(SameEncoding("v@:^@", "v24@0:8o^@16"));
}

TEST(SameEncoding, TheCompilersLettersForOneTypeAreTheSame) {
    EXPECT_TRUE(SameEncoding("B@:", "c16@0:8"));
    EXPECT_TRUE(SameEncoding("B@:", "C16@0:8"));
    EXPECT_TRUE(SameEncoding("q@:", "l16@0:8"));
    EXPECT_TRUE(SameEncoding("Q@:", "L16@0:8"));
    EXPECT_TRUE(SameEncoding("@@:Q", "@20@0:8I16")) << "an enumeration may be 32 bits";
}

TEST(SameEncoding, WholeNumbersCanBeHeldToTheirWidthAndSign) {
    const auto exact = [](const char *expected, const char *found) {
        return objc::SameEncoding(expected, found, Integers::kExact);
    };
    EXPECT_TRUE(exact("q@:iIQB", "q40@0:8i16I20Q24B32"));
    EXPECT_TRUE(exact("B@:", "c16@0:8"));
    EXPECT_FALSE(exact("q@:", "i16@0:8"));
    EXPECT_FALSE(exact("i@:", "q16@0:8"));
    EXPECT_FALSE(exact("v@:Q", "v24@0:8q16"));
    EXPECT_FALSE(exact("v@:I", "v24@0:8Q16"));
    EXPECT_FALSE(exact("v@:{_NSRange=QQ}", "v@:{_NSRange=qq}"));
    EXPECT_FALSE(SameEncoding("v@:Q", "v24@0:8q16")) << "the sign always counts";
}

TEST(SameEncoding, TypesThatTravelDifferentlyDiffer) {
    EXPECT_FALSE(SameEncoding("f@:", "d16@0:8"));
    EXPECT_FALSE(SameEncoding("v@:d", "v24@0:8q16"));
    EXPECT_FALSE(SameEncoding("v@:B", "v24@0:8@16"));
    EXPECT_FALSE(SameEncoding("v@:", "@16@0:8"));
    EXPECT_FALSE(SameEncoding("v@:@", "v@:#"));
}

TEST(SameEncoding, MissingOrAdditionalArgumentsDiffer) {
    EXPECT_FALSE(SameEncoding("v@:@", "v@:"));
    EXPECT_FALSE(SameEncoding("v@:", "v@:@"));
    EXPECT_FALSE(SameEncoding("v@:@", ""));
    EXPECT_TRUE(SameEncoding("", ""));
}

TEST(SameEncoding, StructuresCompareByTheirFields) {
    EXPECT_TRUE(SameEncoding("{CGPoint=dd}@:", "{_NSPoint=dd}16@0:8"));
    EXPECT_TRUE(SameEncoding("v@:{CGRect={CGPoint=dd}{CGSize=dd}}", "v48@0:8{_NSRect={_NSPoint=dd}{_NSSize=dd}}16"));
    EXPECT_FALSE(SameEncoding("{CGPoint=dd}@:", "{CGPoint=ff}@:"));
    EXPECT_FALSE(SameEncoding("{CGPoint=dd}@:", "{CGVector=ddd}@:"));
    EXPECT_FALSE(SameEncoding("v@:{CGRect={CGPoint=dd}{CGSize=dd}}", "v@:{Quad=dddd}")) << "nesting is kept";
    EXPECT_FALSE(SameEncoding("v@:{CGPoint=dd}", "v@:dd"));
    EXPECT_TRUE(SameEncoding("v@:{Vertex=dd}", "v@:{Point=dd}")) << "names do not count";
}

TEST(SameEncoding, ComparisonGoesOnAfterStructuresAndBlocks) {
    EXPECT_FALSE(SameEncoding("v@:{CGPoint=dd}@", "v@:{CGPoint=dd}q"));
    EXPECT_FALSE(SameEncoding("v@:@?d", "v@:^{Block=^v}q"));
}

TEST(SameEncoding, ABlockIsAStructurePointerToACompilerWithoutBlocks) {
    EXPECT_TRUE(SameEncoding("@@:@@@@?", "@48@0:8@16@24@32^{?=^vii^?}40"));
    EXPECT_TRUE(SameEncoding("v@:@?", "v@:@?"));
    EXPECT_FALSE(SameEncoding("v@:@?", "v@:^q"));
}

TEST(SameEncoding, PointersStandForOneAnother) {
    EXPECT_TRUE(SameEncoding("v@:^@", "v@:^^v"));
    EXPECT_TRUE(SameEncoding("v@:^S", "v@:*"));
    EXPECT_FALSE(SameEncoding("v@:^S", "v@:@"));
}

TEST(SameEncoding, AnArgumentListIsAnArrayOrStructureElsewhere) {
    EXPECT_TRUE(SameEncoding("@@:@*", "@32@0:8@16[1{?=II^v^v}]24"));
    EXPECT_TRUE(SameEncoding("@@:@*", "@32@0:8@16{?=^v^v^vii}24"));
    EXPECT_FALSE(SameEncoding("@@:@q", "@32@0:8@16[1{?=II^v^v}]24"));
}

TEST(SameEncoding, QuotedClassNamesDoNotCount) {
    EXPECT_TRUE(SameEncoding("v@:@", "v@:@\"NSString\""));
    EXPECT_TRUE(SameEncoding("@@:@q", "@@:@\"NSString\"q"));
}

TEST(SameEncoding, BrokenTextEndsTheComparison) {
    EXPECT_FALSE(SameEncoding("v@:{CGPoint=dd}", "v@:{CGPoint=d"));
    EXPECT_FALSE(SameEncoding("v@:@q", "v@:@\"unfinished q"));
    EXPECT_FALSE(SameEncoding("v@:^", "v@:"));
}

} // namespace
} // namespace objc
