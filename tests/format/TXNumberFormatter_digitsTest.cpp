// The digit list: loaded, cleaned, cut and padded.
#include "format/TXNumberFormatter.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

std::string written(const DigitList& list) {
    std::string text;
    for (const auto digit : list) {
        text += static_cast<char>('0' + digit);
    }
    return text;
}

struct LoadCase {
    double number = 0.0;
    const char* digits = "";
    int decimalLocation = 1;
    int exponent = 0;
    const char* negative = "";
};

TEST(SetNumber, loadsTheMasterDigits) {
    const LoadCase rows[] = {
        {0.0, "0", 1, 0},
        {-0.0, "0", 1, 0},
        {1.0, "1", 1, 0},
        {-1.0, "1", 1, 0, "-"},
        {1200.0, "12", 4, 0},  // zeros at the end are not kept
        {12.5, "125", 2, 0},
        {-12.5, "125", 2, 0, "-"},
        {0.5, "5", 0, 0},         // the zero before the point is skipped
        {0.00123, "123", 0, -2},  // those behind it count into the exponent
        {-0.0001, "1", 0, -3, "-"},
        {0.00001, "1", 1, -5},  // read from exponent form
        {-1.5e-7, "15", 1, -7, "-"},
        {1e16, "1", 17, 0},
        {1.25e17, "125", 1, 17},
        {0.1 + 0.2, "3", 0, 0},
        {0.9999999999999999, "1", 1, 0},
        {1299.9999999999998, "1300", 4, 0},
        {-9007199254740991.0, "900719925474099", 16, 0, "-"},
        {0.000123456789012345, "12345678901", 0, -3},
        {infinity, "0", 1, 0},
        {-infinity, "0", 1, 0, "-"},
        {std::numeric_limits<double>::quiet_NaN(), "0", 1, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        TXNumberFormatter formatter;
        formatter.setNumber(row.number);
        EXPECT_EQ(written(formatter.masterRoundingNumber()), row.digits);
        EXPECT_EQ(formatter.masterDecimalLocation(), row.decimalLocation);
        EXPECT_EQ(formatter.masterExponent(), row.exponent);
        EXPECT_EQ(utf8(formatter.negative()), row.negative);
    }
}

TEST(SetNumber, forgetsTheNumberBefore) {
    TXNumberFormatter formatter;
    formatter.setNumber(-1.25e-7);
    formatter.setNumber(3.0);
    EXPECT_EQ(written(formatter.masterRoundingNumber()), "3");
    EXPECT_EQ(formatter.masterExponent(), 0);
    EXPECT_EQ(utf8(formatter.negative()), "");
}

TEST(CopyMasterNumber, copiesDigitsAndPlace) {
    TXNumberFormatter formatter;
    formatter.setNumber(0.00123);
    formatter.truncateToLength(1);
    formatter.copyMasterNumberIntoRoundingNumber();
    EXPECT_EQ(written(formatter.roundingNumber()), "123");
    EXPECT_EQ(formatter.decimalLocation(), 0);
    EXPECT_EQ(formatter.exponent(), -2);
}

TEST(CleanUp, findsNothingToDoASecondTime) {
    for (const double number : {0.0, 7.0, 12.5, 0.00123, 1.25e17}) {
        SCOPED_TRACE(number);
        TXNumberFormatter formatter;
        formatter.setNumber(number);
        const std::string digits = written(formatter.masterRoundingNumber());
        formatter.removeTrailingZeros();
        formatter.eliminateDoublePrecisionNoise();
        EXPECT_EQ(written(formatter.masterRoundingNumber()), digits);
    }
}

TEST(CleanUp, leavesTheMasterNumberInTheWorkingDigits) {
    struct {
        double number;
        const char* digits;
        int decimalLocation;
        int exponent;
    } const rows[] = {
        {12.5, "125", 2, 0}, {0.00123, "123", 0, -2}, {0.9999999999999999, "1", 1, 0}, {1.25e17, "125", 1, 17}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        TXNumberFormatter formatter;
        formatter.setNumber(row.number);
        EXPECT_EQ(written(formatter.roundingNumber()), row.digits);
        EXPECT_EQ(formatter.decimalLocation(), row.decimalLocation);
        EXPECT_EQ(formatter.exponent(), row.exponent);
        formatter.truncateToLength(-1);
        formatter.eliminateDoublePrecisionNoise();
        EXPECT_EQ(written(formatter.roundingNumber()), row.digits);
        EXPECT_EQ(formatter.decimalLocation(), row.decimalLocation);
        EXPECT_EQ(formatter.exponent(), row.exponent);
    }
}

TEST(CleanUp, hasNothingToCopyForZero) {
    TXNumberFormatter formatter;
    formatter.setNumber(0.0);
    EXPECT_EQ(formatter.roundingNumber().count(), 0);
    EXPECT_EQ(formatter.decimalLocation(), -1);
    EXPECT_EQ(formatter.exponent(), 1);
}

TEST(CleanUp, removesTheZerosThatNoiseLeft) {
    TXNumberFormatter formatter;
    formatter.setNumber(1299.9999999999998);
    formatter.removeTrailingZeros();
    EXPECT_EQ(written(formatter.masterRoundingNumber()), "13");
    EXPECT_EQ(formatter.masterDecimalLocation(), 4);
}

TEST(Steps, doNoHarmBeforeANumberIsLoaded) {
    TXNumberFormatter formatter;
    formatter.removeTrailingZeros();
    formatter.eliminateDoublePrecisionNoise();
    formatter.copyMasterNumberIntoRoundingNumber();
    formatter.truncateToLength(0);
    formatter.truncateToLength(1);
    formatter.truncateWithRoundingToLength(1);
    EXPECT_EQ(formatter.masterRoundingNumber().count(), 0);
    EXPECT_EQ(formatter.roundingNumber().count(), 0);
    EXPECT_TRUE(formatter.isZeroNumber());
    EXPECT_EQ(utf8(formatter.logRoundingNumber()), "()");
    formatter.truncateToLength(-1);
    EXPECT_EQ(written(formatter.roundingNumber()), "0");
}

struct CutCase {
    double number;
    int length;
    const char* digits;
    int decimalLocation;
    int exponent;
};

constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

TEST(TruncateToLength, roundsHalfUpOnTheFirstDigitDropped) {
    const CutCase rows[] = {
        {1.2349, 3, "123", 1, 0},   {1.235, 3, "124", 1, 0},    {1.2349, 4, "1235", 1, 0},
        {1.2349, 5, "12349", 1, 0}, {1.2349, 6, "12349", 1, 0}, {1.2349, most, "12349", 1, 0},
        {1.995, 3, "200", 1, 0},    {9.996, 3, "100", 2, 0},    {9.6, 1, "1", 2, 0},
        {0.00096, 1, "1", 1, -3},   {5e-7, 0, "1", 2, -7},      {4.999e-7, 0, "0", 1, 0},
        {50.0, 0, "1", 3, 0},       {49.0, 0, "0", 1, 0},       {99.0, -1, "0", 1, 0},
        {9e-7, -1, "0", 1, 0},      {99.0, least, "0", 1, 0},   {0.0, 0, "0", 1, 0},
        {0.0, 1, "0", 1, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.number << " to " << row.length);
        TXNumberFormatter formatter;
        formatter.setNumber(row.number);
        formatter.copyMasterNumberIntoRoundingNumber();
        formatter.truncateToLength(row.length);
        EXPECT_EQ(written(formatter.roundingNumber()), row.digits);
        EXPECT_EQ(formatter.decimalLocation(), row.decimalLocation);
        EXPECT_EQ(formatter.exponent(), row.exponent);
    }
}

TEST(TruncateWithRoundingToLength, addsOneInTheLastPlaceKept) {
    const CutCase rows[] = {
        {1.2, 1, "2", 1, 0},       {1.234, 2, "13", 1, 0}, {1.29, 3, "130", 1, 0},     {9.94, 2, "10", 2, 0},
        {0.999, 3, "100", 1, 0},   {9.0, 1, "1", 2, 0},    {1.23, 3, "124", 1, 0},     {1.23, 4, "124", 1, 0},
        {1.23, most, "124", 1, 0}, {1.23, 0, "123", 1, 0}, {1.23, least, "123", 1, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.number << " to " << row.length);
        TXNumberFormatter formatter;
        formatter.setNumber(row.number);
        formatter.copyMasterNumberIntoRoundingNumber();
        formatter.truncateWithRoundingToLength(row.length);
        EXPECT_EQ(written(formatter.roundingNumber()), row.digits);
        EXPECT_EQ(formatter.decimalLocation(), row.decimalLocation);
        EXPECT_EQ(formatter.exponent(), row.exponent);
    }
}

TEST(AddZeros, leavesThePlaceOfThePointToTheCaller) {
    TXNumberFormatter formatter;
    formatter.setNumber(1.5);
    formatter.copyMasterNumberIntoRoundingNumber();
    formatter.addZerosToEnd(2);
    EXPECT_EQ(written(formatter.roundingNumber()), "1500");
    formatter.addZerosToBeginning(3);
    EXPECT_EQ(written(formatter.roundingNumber()), "0001500");
    for (const int zeros : {0, -1, least}) {
        formatter.addZerosToEnd(zeros);
        formatter.addZerosToBeginning(zeros);
        EXPECT_EQ(written(formatter.roundingNumber()), "0001500");
    }
    EXPECT_EQ(formatter.decimalLocation(), 1);
}

TEST(AddZeros, takesAnyNumber) {
    TXNumberFormatter formatter;
    formatter.setNumber(1.5);
    formatter.copyMasterNumberIntoRoundingNumber();
    formatter.addZerosToEnd(most);
    formatter.addZerosToBeginning(most);
    EXPECT_EQ(formatter.roundingNumber().count(), DigitList::capacity);
}

TEST(IsZeroNumber, looksAtTheWorkingDigits) {
    TXNumberFormatter formatter;
    formatter.setNumber(0.0);
    formatter.copyMasterNumberIntoRoundingNumber();
    EXPECT_TRUE(formatter.isZeroNumber());
    formatter.addZerosToEnd(3);
    EXPECT_TRUE(formatter.isZeroNumber());
    formatter.setNumber(0.1);
    EXPECT_FALSE(formatter.isZeroNumber());
    formatter.addZerosToBeginning(3);
    EXPECT_FALSE(formatter.isZeroNumber());
}

TEST(Log, showsTheDigitsAndChangesNothing) {
    TXNumberFormatter formatter;
    EXPECT_EQ(utf8(formatter.logMasterRoundingNumber()), "()");
    formatter.setNumber(-12.75);
    formatter.copyMasterNumberIntoRoundingNumber();
    formatter.truncateToLength(1);
    EXPECT_EQ(utf8(formatter.logMasterRoundingNumber()), "(1, 2, 7, 5)");
    EXPECT_EQ(utf8(formatter.logRoundingNumber()), "(1)");
    EXPECT_EQ(utf8(formatter.roundToSignificantFigures(-1)), "-12.75");
}

}  // namespace
