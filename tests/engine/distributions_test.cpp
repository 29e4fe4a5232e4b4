// Tail areas, their inverses and what they rest on. Expected values from R 4.2.2; the call stands
// beside each table.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "engine/distributions.h"
#include "support/box_texts.h"

namespace tolmer {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

class Distributions : public testing::Test {
 protected:
  void TearDown() override { EXPECT_TRUE(messages.boxes().empty()); }
  MessageLog messages;
};

TEST_F(Distributions, GammaLnAgreesToItsSeries) {
  // lgamma(x); the series is good for ten digits of the gamma function
  EXPECT_NEAR(GammaLn(0.5), 0.5723649429247, 2e-10);
  EXPECT_NEAR(GammaLn(1), 0, 2e-10);
  EXPECT_NEAR(GammaLn(1.5), -0.120782237635245, 2e-10);
  EXPECT_NEAR(GammaLn(10), 12.8018274800815, 2e-10);
  EXPECT_NEAR(GammaLn(100.5), 361.435540467778, 4e-10);
  EXPECT_NEAR(GammaLn(249.5), 1125.76454241706, 1e-9);
}

TEST_F(Distributions, BetaIIsTheIncompleteBetaFunctionWithoutLogarithmsAtItsEnds) {
  // pbeta(x, a, b); the fraction stops at 3e-8
  EXPECT_NEAR(BetaI(2, 3, 0.1, messages), 0.0523, 3e-8);
  EXPECT_NEAR(BetaI(2, 3, 0.5, messages), 0.6875, 3e-8);
  EXPECT_NEAR(BetaI(2, 3, 0.9, messages), 0.9963, 3e-8);
  EXPECT_NEAR(BetaI(0.5, 0.5, 0.3, messages), 0.369010119565545, 3e-8);
  EXPECT_NEAR(BetaI(225, 24.5, 0.9, messages), 0.439550937942029, 3e-8);
  for (const double a : {0.5, 1.0, 24.5, 225.0}) {
    EXPECT_EQ(BetaI(a, 0.5, 0, messages), 0);
    EXPECT_EQ(BetaI(a, 0.5, 1, messages), 1);
  }
  EXPECT_TRUE(std::isnan(BetaI(2, 3, nan, messages)));
}

TEST(BetaIMessage, AnArgumentOutsideZeroToOneIsReported) {
  for (const double x : {-0.001, 1.001, -infinity, infinity}) {
    MessageLog messages;
    EXPECT_TRUE(std::isnan(BetaI(2, 3, x, messages)));
    ASSERT_EQ(test::textsOf(messages),
              std::vector<std::string>{"Bad X argument in function BetaI"});
    EXPECT_EQ(messages.boxes()[0].box.icon, MessageIcon::none);
    EXPECT_EQ(messages.boxes()[0].box.title, "");
  }
  MessageLog messages;
  FDist(3, 9, -0.5, messages);
  EXPECT_EQ(messages.boxes().size(), 1U);
}

TEST_F(Distributions, TDistIsTheLeftTail) {
  struct Row {
    int df;
    double area[5];  // pt(c(-5, -1.5, 0, 0.3, 2.2), df)
  };
  constexpr double t[5] = {-5, -1.5, 0, 0.3, 2.2};
  for (const Row& row : std::initializer_list<Row>{
           {1, {0.0628329581890012, 0.187167041810999, 0.5, 0.592773579077742, 0.864200251219908}},
           {2, {0.0188747756753119, 0.1361965624455, 0.5, 0.603757169579911, 0.92059551209603}},
           {5,
            {0.00205235799002666, 0.0969518401212366, 0.5, 0.611875478868363, 0.960453051048409}},
           {13,
            {0.000121477002909603, 0.0787521453627283, 0.5, 0.615539798120684, 0.976751237826514}},
           {30,
            {1.16483427335039e-05, 0.072032964564323, 0.5, 0.616876947357824, 0.982175780001582}},
           {498,
            {3.97825576005677e-07, 0.0671240414394842, 0.5, 0.61784883173015, 0.98586726294982}}})
    for (int i = 0; i < 5; ++i)
      EXPECT_NEAR(TDist(row.df, t[i], messages), row.area[i], 3e-8) << row.df << " at " << t[i];
  EXPECT_EQ(TDist(7, 0, messages), 0.5);
  EXPECT_EQ(TDist(7, -infinity, messages), 0);
  EXPECT_EQ(TDist(7, infinity, messages), 1);
  EXPECT_TRUE(std::isnan(TDist(7, nan, messages)));
}

TEST_F(Distributions, FDistIsTheRightTail) {
  struct Row {
    int df1, df2;
    double area[4];  // pf(c(0.5, 1, 4.2, 50), df1, df2, lower = FALSE)
  };
  constexpr double x[4] = {0.5, 1, 4.2, 50};
  for (const Row& row : std::initializer_list<Row>{
           {1, 1, {0.608173447969393, 0.5, 0.289000708639711, 0.0894385219503155}},
           {3, 9, {0.691516186155673, 0.436289949651132, 0.040815639515947, 6.16996265195186e-06}},
           {4,
            19,
            {0.736065742715433, 0.431863764252353, 0.0132834837458051, 7.93646234287719e-10}},
           {49, 450, {0.998200740171037, 0.477248283882282, 1.56408272101444e-16, 0}},
           {10, 3, {0.821992592624825, 0.567662796978303, 0.132185718516213, 0.00409713837734818}}})
    for (int i = 0; i < 4; ++i)
      EXPECT_NEAR(FDist(row.df1, row.df2, x[i], messages), row.area[i], 3e-8)
          << row.df1 << ", " << row.df2 << " at " << x[i];
  EXPECT_EQ(FDist(3, 9, 0, messages), 1);
  EXPECT_EQ(FDist(3, 9, infinity, messages), 0);
  // The square of t with n degrees of freedom is F with 1 and n.
  for (const double t : {0.1, 1.0, 2.5, 20.0})
    EXPECT_NEAR(FDist(1, 12, t * t, messages), 2 * (1 - TDist(12, t, messages)), 1e-7);
}

TEST_F(Distributions, NormalInverseTakesTheUsualTailsFromTheTable) {
  for (const auto& [p, z] :
       {std::pair(0.05, 1.64485), {0.025, 1.95996}, {0.01, 2.32635}, {0.005, 2.57583}}) {
    EXPECT_EQ(NormalInverse(p), z);
    EXPECT_EQ(NormalInverse(1 - p), -z);
  }
  EXPECT_EQ(NormalInverse(0.5), 0);
}

TEST_F(Distributions, NormalInverseFollowsItsSeriesElsewhere) {
  struct Row {
    double p, z;  // qnorm(p, lower = FALSE)
    double tolerance;
  };
  for (const auto& [p, z, tolerance] :
       std::initializer_list<Row>{{0.4999, 0.000250662830088008, 1e-8},
                                  {0.3, 0.524400512708041, 1e-8},
                                  {0.1, 1.2815515655446, 1e-8},
                                  {0.02, 2.05374891063182, 2e-7},
                                  // the series is too short for the far tails
                                  {0.001, 3.09023230616781, 2e-4},
                                  {1e-4, 3.71901648545568, 5e-3}}) {
    EXPECT_NEAR(NormalInverse(p), z, tolerance) << p;
    EXPECT_NEAR(NormalInverse(1 - p), -z, tolerance) << p;
  }
  EXPECT_NEAR(NormalInverse(1e-4), 3.7141580600567, 1e-12);  // and has no further terms
}

TEST_F(Distributions, NormalInverseNeverRises) {
  double before = infinity;
  for (double p = 1e-16; p < 0.9999; p += p < 1e-3 ? p / 10 : 1e-4) {
    const double z = NormalInverse(p);
    ASSERT_LE(z, before + 1e-5) << p;  // the table has five decimals
    before = z;
  }
}

TEST_F(Distributions, NormalDensityEndsAtFiveDeviations) {
  EXPECT_FLOAT_EQ(NormalDensity(0, 1, 0), 0.398942280F);  // dnorm(0)
  EXPECT_FLOAT_EQ(NormalDensity(0, 1, -1), 0.241970725F);
  EXPECT_FLOAT_EQ(NormalDensity(10, 2, 12), 0.120985362F);
  EXPECT_GT(NormalDensity(0, 1, 5), 0);
  EXPECT_EQ(NormalDensity(0, 1, 5.0001), 0);
  EXPECT_EQ(NormalDensity(0, 1, -6), 0);
}

TEST_F(Distributions, TInverseIsNearTheExactQuantile) {
  struct Row {
    int df;
    double t[4];       // qt(c(0.05, 0.025, 0.005, 0.3), df, lower = FALSE)
    double tolerance;  // absolute
  };
  constexpr double p[4] = {0.05, 0.025, 0.005, 0.3};
  for (const Row& row : std::initializer_list<Row>{
           {1, {6.31375151467504, 12.7062047361747, 63.6567411628716, 0.726542528005361}, 1e-10},
           {2, {2.91998558035373, 4.30265272974946, 9.92484320091829, 0.617213399848368}, 1e-10},
           // by bisection to 1e-5 of a transformed value
           {3, {2.35336343480183, 3.18244630528371, 5.84090930973336, 0.584389727439819}, 5e-5},
           {4, {2.13184678632665, 2.77644510519779, 4.60409487134999, 0.568649063049706}, 5e-5},
           {5, {2.01504837333302, 2.57058183563632, 4.03214298355523, 0.559429644469361}, 5e-5},
           // by five terms of the expansion, and z from the table
           {6, {1.9431802805153, 2.44691185114497, 3.70742802132478, 0.553380923551519}, 2e-4},
           {10, {1.81246112281168, 2.22813885198627, 3.16927267261695, 0.541528038755016}, 1e-5},
           {30, {1.69726088659396, 2.04227245630124, 2.74999565356723, 0.530019003906505}, 1e-5},
           {498, {1.64791913885501, 1.96473898296729, 2.58573761108022, 0.52473633076724}, 6e-6}})
    for (int i = 0; i < 4; ++i) {
      EXPECT_NEAR(TInverse(row.df, p[i]), row.t[i], row.tolerance) << row.df << " at " << p[i];
      EXPECT_NEAR(TInverse(row.df, 1 - p[i]), -row.t[i], row.tolerance) << row.df << " at " << p[i];
    }
}

TEST_F(Distributions, FInverseIsNearTheExactQuantile) {
  struct Row {
    int df1, df2;
    double F[3];       // qf(c(0.5, 0.05, 0.01), df1, df2, lower = FALSE)
    double tolerance;  // relative
  };
  constexpr double p[3] = {0.5, 0.05, 0.01};
  for (const Row& row : std::initializer_list<Row>{
           {1, 1, {1, 161.447638797588, 4052.18069547683}, 2e-5},
           {3, 9, {0.851683950384597, 3.86254835762476, 6.99191722223347}, 5e-5},
           {4, 31, {0.857806134046012, 2.6786671096568, 3.99281132460596}, 1e-4},
           {31, 31, {1, 1.82213229049749, 2.35094122953414}, 2e-3},  // Paulson's approximation
           {49, 450, {0.987892563878195, 1.38267073136037, 1.57622910338923}, 5e-4}})
    for (int i = 0; i < 3; ++i)
      EXPECT_NEAR(FInverse(row.df1, row.df2, p[i]) / row.F[i], 1, row.tolerance)
          << row.df1 << ", " << row.df2 << " at " << p[i];
}

TEST_F(Distributions, InversesAreSaneAtAllArguments) {
  for (const int df : {1, 2, 3, 5, 6, 40, 32767}) {
    EXPECT_EQ(TInverse(df, 0), infinity);
    EXPECT_EQ(TInverse(df, -1), infinity);
    EXPECT_EQ(TInverse(df, 1), -infinity);
    EXPECT_TRUE(std::isnan(TInverse(df, nan)));
    EXPECT_NEAR(TInverse(df, 0.5), 0, 0.01) << df;
    for (const int df2 : {1, 30, 31, 32767}) {
      EXPECT_EQ(FInverse(df, df2, 0), 99999999);
      EXPECT_TRUE(std::isnan(FInverse(df, df2, nan)));
      for (const double p : {1e-300, 1e-12, 0.999999, 1.0, 2.0}) EXPECT_GE(FInverse(df, df2, p), 0);
    }
  }
  for (const int none : {0, -3}) {
    EXPECT_TRUE(std::isnan(TInverse(none, 0.025)));
    EXPECT_TRUE(std::isnan(FInverse(none, 5, 0.05)));
    EXPECT_TRUE(std::isnan(FInverse(5, none, 0.05)));
  }
  EXPECT_EQ(NormalInverse(0), infinity);
  EXPECT_EQ(NormalInverse(1), -infinity);
  EXPECT_TRUE(std::isnan(NormalInverse(nan)));
}

}  // namespace
}  // namespace tolmer
