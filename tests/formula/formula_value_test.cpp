// What formulas are worth. Expected values are those of usual spreadsheets where not said
// otherwise; statistics are worked out by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "formula/scalar_functions.h"
#include "formula/small_sheet.h"

namespace tolmer::test {
namespace {

// Formulas and what they show: "=1+1 -> 2 | =2*3 -> 6", over as many lines as it takes.
void expectAll(const SmallSheet& sheet, std::string_view cases, int row = 1) {
  for (const auto& [formula, result] : pairsIn(cases))
    EXPECT_EQ(shown(sheet.value(formula, row)), result) << formula;
}

TEST(FormulaValue, OperatorsBindAsInSpreadsheets) {
  expectAll(SmallSheet(), R"(
      =-2^2 -> 4 | =2^3^2 -> 64 | =2^-1 -> 0.5 | =1-2-3 -> -4 | =8/4/2 -> 1 | =2+3*4 -> 14
      = ( 2 + 3 )*4  -> 20 | =50% -> 0.5 | =2*-50% -> -1 | =--3 -> 3 | =+-+3 -> -3 | =10%% -> 0.001
      =1+1=2 -> 1 | =1<>1 -> 0 | =2>=3 -> 0 | =-1<0 -> 1 | =3<=3 -> 1 | =.5+5. -> 5.5
      =2E3+1e-1 -> 2000.1 | =0.1+0.2=0.3 -> 1 | =0.1+0.2<=0.3 -> 1 | =0.1+0.2>0.3 -> 0 | =-0 -> 0
      =0^0 -> 1
      )");
}

TEST(FormulaValue, FunctionsRoundAndCutAsInSpreadsheets) {
  expectAll(SmallSheet(), R"(
      =ROUND(-2.5) -> -3 | =ROUND(2.5,0) -> 3 | =ROUND(1.005;2) -> 1.01 | =ROUND(2.675,2) -> 2.68
      =ROUND(149,-2) -> 100 | =ROUND(150,-2) -> 200 | =ROUND(99.95,1) -> 100 | =ROUND(5,-1) -> 10
      =ROUND(4,-1) -> 0 | =ROUND(5,-2) -> 0 | =ROUND(0.1+0.2,15) -> 0.3
      =ROUND(123456789012345678,0) -> 123456789012345680 | =ROUND(1e300,400) -> 1e+300
      =ROUND(1e300,-400) -> 0 | =ROUND(9e307,-308) -> 1e+308 | =ROUND(1.7e308,-308) -> #NUM!
      =INT(-2.5) -> -3 | =INT(4.35*100) -> 435 | =INT(2.999) -> 2 | =MOD(-3,2) -> 1
      =MOD(3,-2) -> -1 | =MOD(0.3,0.1) -> 0 | =MOD(5.5,2) -> 1.5 | =MOD(1,0) -> #DIV/0!
      =MOD(1e300,3) -> #NUM! | =POWER(2,10) -> 1024 | =power(0,-1) -> #DIV/0!
      =POWER(-8,0.5) -> #NUM! | =SQRT(16) -> 4 | =SQRT(-1) -> #NUM! | =ABS(-7) -> 7
      =LN(EXP(1)) -> 1 | =LN(0) -> #NUM! | =log10(1000) -> 3 | =EXP(1000) -> #NUM!
      =EXP(-1000) -> 0 | =1e308*10 -> #NUM! | =1/0 -> #DIV/0! | =NOT(0) -> 1 | =AND(1<2,2<3) -> 1
      =OR(0,1>2) -> 0
      )");
}

TEST(FormulaValue, OnlyTheBranchTakenIsCalculated) {
  expectAll(SmallSheet(), R"(
      =IF(1,2,1/0) -> 2 | =IF(0,1/0,3) -> 3 | =IF(0,1) -> 0 | =IF(1/0,2,3) -> #DIV/0!
      =IF(1<2,IF(0,4,5),6)+1 -> 6 | =SUM(IF(1,2,3),IF(0,2,3)) -> 5
      )");
}

TEST(FormulaValue, EmptyCellsAndTextCountDifferentlyInArithmeticAndInStatistics) {
  SmallSheet sheet;
  sheet.fill("A1: north | B1: 2 | B2: 4 | B4: 9 | B5: 5 | C1: word");
  expectAll(sheet, R"(
      =B3 -> 0 | =B3+1 -> 1 | =A1 -> #VALUE! | =C1*2 -> #VALUE! | =SUM(B1:C5) -> 20 | =SUM(A1) -> 0
      =SUM(A1+0) -> #VALUE! | =COUNT(A1:C5) -> 4 | =COUNT(B3,B1,7) -> 2 | =AVERAGE(B1:B5) -> 5
      =MEDIAN(B5:B1) -> 4.5 | =MEDIAN(B1:B4) -> 4 | =MIN(B:B) -> 2 | =MAX(A:C) -> 9
      =MAX(C1:C5) -> 0 | =VAR(B2,B4,B5) -> 7 | =STDEV(2,4)^2 -> 2.0000000000000004
      =VAR(B1) -> #DIV/0! | =AVERAGE(C1:C9) -> #DIV/0! | =MEDIAN(C:C) -> #NUM!
      =AND(C1:C2) -> #VALUE! | =SUM(0.1,0.1,0.1,0.1,0.1,0.1,0.1,0.1,0.1,0.1) -> 1
      =VAR(1e9+4,1e9+7,1e9+13,1e9+16) -> 30
      )");
}

TEST(FormulaValue, TextsAreComparedAndCounted) {
  SmallSheet sheet({"Sex", "Age"});
  sheet.fill(R"(
      A1: Male  | A2: fem"ale | A4: male | A6: Ärzte | B1: 20 | B2: 30 | B4: 30 | B5: 5
      )");
  sheet.type("B6", "=1/0");
  // A label is text, whatever it looks like.
  sheet.cells[{5, 0}] = CellValue::ofText(sheet.texts[{5, 0}] = "7");
  expectAll(sheet, R"(
      =IF(A1="male",1,0) -> 1 | =IF(Sex<>"MALE";1;0) -> 0 | =A2="FEM""ALE" -> 1 | =A1=A4 -> 1
      =A6="äRZTE" -> 1 | =A1=A2 -> 0 | =A3="" -> 1 | =A1<>"" -> 1 | =A3="male" -> 0
      =IF(A1="x","a","b")="b" -> 1 | =A5=7 -> 1 | =A1=7 -> 0 | =B1="20" -> 1 | =B3="20" -> 0
      =A1<"z" -> #VALUE! | =A1+1 -> #VALUE! | =-"a" -> #VALUE! | =IF(A1,1,0) -> #VALUE!
      =IF(B1=20,"",1) -> #VALUE! | =B6="a" -> #DIV/0! | =SUM("2") -> #VALUE!
      =COUNTIF(Sex,"male") -> 2 | =COUNTIF(Sex,Sex) -> 2 | =COUNTIF(A1:A6,"<>male") -> 3
      =COUNTIF(A1:A6,"*male*") -> 2 | =COUNTIF(A1:A6,"*MALE") -> 2 | =COUNTIF(A:A,"?rzte") -> 1
      =COUNTIF(A:A,"?") -> 1 | =COUNTIF(A1:A6,"") -> 1 | =COUNTIF(A1:A6,"<>") -> 5
      =COUNTIF(A:B,7) -> 1 | =COUNTIF(Age,">=20") -> 3 | =COUNTIF(Age," < 20 ") -> 1
      =COUNTIF(Age,"<>30") -> 2 | =COUNTIF(Age,B2) -> 2 | =COUNTIF(Age,">m") -> #VALUE!
      =COUNTIF(Age,B6) -> #DIV/0! | =COUNTIF(5,5) -> #VALUE!
      )");
}

// Expected values: R 4.2.2.
TEST(FormulaValue, RanksCorrelationsAndNormalQuantiles) {
  SmallSheet sheet({"Label", "x", "y", "flat"});
  const std::vector<std::array<const char*, 3>> rows = {
      {"1", "2.5", "0.1"}, {"2", "3", "0.1"},   {"4", "8", "0.1"}, {"9", "", ""},
      {"7", "6", "0.1"},   {"11", "14", "0.1"}, {"3", "1", "0.1"}, {"", "4", ""}};
  for (std::size_t row = 0; row < rows.size(); ++row)
    for (std::size_t column = 0; column < 3; ++column)
      sheet.put(columnLetters(static_cast<int>(column) + 1) + std::to_string(row + 1),
                rows[row][column]);
  sheet.fill(R"(
      E1: 5 | E2: 3 | E3: 5 | E4: 1 | E5: 9 | F1: 1e200 | F2: 2e200 | F3: 4e200 | G1: 1e-200
      G2: 2e-200 | G3: 3e-200
      )");
  expectAll(sheet, R"(
      =ROW() -> 4 | =ROW(B7)+ROW(x) -> 11 | =ROW(#REF!) -> #REF! | =RANK(E1,E$1:E$5) -> 2
      =RANK(E3,E1:E5,0) -> 2 | =RANK.EQ(E2,E1:E5) -> 4 | =RANK(E3,E1:E5,1) -> 3 | =RANK(x,x) -> 2
      =RANK(6,E1:E5) -> #VALUE! | =ROUND(CORREL(x,y),14) -> 0.88345497684229
      =ROUND(PEARSON(F1:F3,G1:G3),14) -> 0.98198050606197 | =CORREL(x,-1) -> #VALUE!
      =CORREL(B1:B3,C1:C2) -> #VALUE! | =CORREL(x,flat) -> #DIV/0! | =CORREL(B1,C1) -> #DIV/0!
      =CORREL(B1:B2,C1:C2) -> 1 | =STDEV.S(E1:E5)-STDEV(E1:E5)+ROUND(VAR.S(E1:E5),12) -> 8.8
      =ROUND(VAR.P(E1:E5),12) -> 7.04 | =STDEVP(2,4)+STDEV.P(5) -> 1 | =NORM.S.INV(0.5) -> 0
      =NORMSINV(0) -> #NUM! | =NORMSINV(1) -> #NUM!
      =ROUND(NORMSDIST(-1.96)+NORM.S.DIST(1.96,1),15) -> 1
      =ROUND(NORM.S.DIST(1.5,0),15) -> 0.129517595665892
      )",
            4);
  const std::pair<double, double> quantiles[] = {
      {1e-300, -37.047096299361201},  {1e-20, -9.2623400897984052}, {1e-9, -5.9978070150076865},
      {0.0745, -1.443072674370901},   {0.075, -1.4395314709384557}, {0.3, -0.52440051270804067},
      {0.925, 1.4395314709384559},    {0.975, 1.9599639845400536},  {0.9999, 3.7190164854557084},
      {1 - 1e-12, 7.0344869100478356}};
  for (const auto& [probability, quantile] : quantiles) {
    EXPECT_NEAR(normalQuantile(probability) / quantile, 1, 1e-15) << probability;
  }
  // R computes by the same algorithm; the probability of a quantile is another way.
  for (double p = 1e-12; p < 1; p += 0.00137)
    EXPECT_NEAR(normalProbability(normalQuantile(p)) / p, 1, 1e-14) << p;
}

TEST(FormulaText, TypedWordsBecomeVariablesWhereNoCellIsMeant) {
  const SheetNames names({}, {"Label", "X1", "X3", "B2", "X"});
  const auto typed = [&](const std::string& text) {
    const auto formula =
        parseFormula(text, names, 1, [](CellAddress cell) { return cell.column >= 5; });
    return formula ? formula->text : formula.error().message();
  };
  EXPECT_EQ(typed("=x1*2+LN( X3 )"), "=[x1]*2+LN( [X3] )");
  EXPECT_EQ(typed("+X1"), "=+[X1]");
  EXPECT_EQ(typed("-B1*2"), "=-B1*2");
  EXPECT_EQ(typed("=$X1+X1:X1+X2"), "=$X1+X1:X1+X2") << "written as cells";
  EXPECT_EQ(
      typed("+X1+B2"),
      "Character 5: \"B2\" is a variable and a cell. Write [B2] for the variable or B2:B2 for "
      "the cell.");
  EXPECT_EQ(typed("=1+SUM(X1:X3)"),
            "Character 8: X1:X3 are empty cells. Write the variables one by one, as in "
            "SUM(@[X1],@[X3]).");
  EXPECT_EQ(shown(SmallSheet(names.headings()).value("=X1")), "#NAME?") << "as stored";
}

TEST(FormulaValue, AnErrorTravelsAndIsPassedOverByCountAlone) {
  SmallSheet sheet;
  sheet.type("B1", "=1/0");
  sheet.put("B2", "3");
  expectAll(sheet, R"(
      =B1+C1 -> #DIV/0! | =SUM(B1:B2) -> #DIV/0! | =MEDIAN(B:B) -> #DIV/0! | =COUNT(B:B) -> 1
      =LN(0)+B1 -> #NUM! | =#REF!+B1 -> #REF! | =AVERAGE(#NUM!,1) -> #NUM! | =LAG(#REF!) -> #REF!
      )");
  // A source that breaks its promise does not get through either.
  sheet.cells[{3, 1}] = CellValue::ofNumber(std::nan(""));
  expectAll(sheet, "=B3 -> #NUM! | =MIN(B2:B3) -> #NUM! | =IF(B3,1,2) -> #NUM!");
}

TEST(FormulaValue, NamesAreTheRowOrTheColumnAsNeeded) {
  SmallSheet sheet({"Label", "Var1", "Größe (m)", "X1", "Cost", "cost"});
  for (int row = 1; row <= 4; ++row)
    sheet.put("B" + std::to_string(row), std::to_string(row * row));
  for (int row = 1; row <= 2; ++row) sheet.put("C" + std::to_string(row), std::to_string(row));
  sheet.put("D3", "40");
  sheet.put("X1", "1000");
  expectAll(sheet, R"(
      =var1 -> 9 | =[ VAR1 ]*2 -> 18 | =AVERAGE(Var1) -> 7.5 | =Var1-AVERAGE(Var1) -> 1.5
      =SUM(@Var1,@[größe (M)]) -> 9 | =SUM(-Var1) -> -9 | =B:B+1 -> 10 | =SUM(B:C) -> 33
      =[X1] -> 40 | =X1:X1 -> 1000 | =$X1+X$1 -> 2000 | =X1*2 -> #NAME? | =Cost -> #NAME?
      =Nowhere -> #NAME? | =LAG(Var1) -> 4 | =LAG(Var1,-1) -> 16 | =LAG(LAG(Var1)) -> 1
      =LAG(B4;2) -> 4 | =LAG(Var1,3) -> #REF! | =LAG(X1:X1,0) -> 1000
      =COUNT(LAG(Var1),LAG(Var1,3)) -> 1
      )",
            3);
}

TEST(FormulaValue, RandomNumbersStayUntilTheSeedChanges) {
  const SmallSheet sheet;
  const FormulaValue once = sheet.value("=RAND()", 1, 7);
  EXPECT_EQ(once, sheet.value("= rand( )", 300, 7)) << "a sorted row must keep its number";
  EXPECT_NE(once, sheet.value("=RAND()", 1, 8));
  EXPECT_NE(sheet.value("=RAND()-RAND()", 1, 7).number, 0);
  EXPECT_EQ(shown(sheet.value("=NORMAL(5,0)")), "5");
  EXPECT_EQ(shown(sheet.value("=NORMAL(5,-1)")), "#NUM!");

  double sum = 0, squares = 0, uniform = 0;
  constexpr int count = 5000;
  for (int seed = 0; seed < count; ++seed) {
    const double deviate = sheet.value("=RANDN()", 1, static_cast<std::uint64_t>(seed)).number;
    sum += deviate;
    squares += deviate * deviate;
    uniform += sheet.value("=RAND()", 1, static_cast<std::uint64_t>(seed)).number;
  }
  // Four standard errors of each mean.
  EXPECT_NEAR(sum / count, 0, 4 / std::sqrt(count));
  EXPECT_NEAR(squares / count, 1, 4 * std::sqrt(2.0 / count));
  EXPECT_NEAR(uniform / count, 0.5, 4 * std::sqrt(1.0 / 12 / count));
}

TEST(FormulaText, ProblemsSayWhereAndWhat) {
  const SheetNames names({}, {"Label", "Größe", "X1", "Cost", "cost"});
  // The place, a part of the message, and what the cell shows.
  for (const auto& [formula, refusal] : pairsIn(R"(
      1+2 -> 1 begins with #SYNTAX | = -> 2 missing at the end #SYNTAX
      =1+ -> 4 missing at the end #SYNTAX | =*2 -> 2 missing before "*" #SYNTAX
      =1,5 -> 3 decimal mark is a point #SYNTAX | =2 3 -> 4 operator is missing before "3" #SYNTAX
      =(1+2 -> 6 not closed #SYNTAX | =1+2) -> 5 no opening bracket #SYNTAX
      =[Größe]+? -> 10 "?" #SYNTAX | =[Var -> 2 not closed #SYNTAX
      =IF(B1="a,1,2) -> 8 not closed #SYNTAX | =ROW(B1:B2) -> 6 Several cells #VALUE!
      =ROW(1) -> 2 ROW takes a cell #SYNTAX | =RANK(B1:B2,B1:B9) -> 7 Several cells #VALUE!
      =NORM.S.DIST(1,TRUE) -> 16 Write 1 for true #NAME? | =1<B3<5 -> 6 AND(1<B1,B1<5) #SYNTAX
      =SUM -> 2 in brackets #SYNTAX | =SQRT(1,2) -> 2 SQRT takes 1 value, not 2 #SYNTAX
      =IF(1) -> 2 IF takes 2 to 3 values, not 1 #SYNTAX | =SUM(1,,2) -> 8 missing before "," #SYNTAX
      =LAG(B1+1) -> 2 LAG takes a cell #SYNTAX | =LAG(RAND()) -> 2 LAG takes a cell #SYNTAX
      =LAG(B1,C1) -> 9 whole number of rows #SYNTAX | =LAG(B1,0.5) -> 9 whole number of rows #SYNTAX
      =B1:7 -> 2 joins two cells #SYNTAX | =Sales -> 2 no variable called "Sales" #NAME?
      =E*2 -> 2 written as E:E #NAME? | =Cost -> 2 More than one #NAME?
      =LOG(2) -> 2 LN and LOG10 #NAME?
      =X1 -> 2 Write [X1] for the variable or X1:X1 for the cell #NAME? | =B0 -> 2 A1 to AY500 #REF!
      =B1:B501 -> 2 "B501" lies outside #REF! | =AZ1 -> 2 outside #REF!
      =B1:B3+1 -> 2 Several cells #VALUE! | =LAG(B1:B2) -> 6 Several cells #VALUE!
      =1e999 -> 2 too large #NUM!
      )")) {
    const auto first = refusal.find(' '), last = refusal.rfind(' ');
    const Result<Formula> parsed = parseFormula(formula, names, 1);
    ASSERT_FALSE(parsed) << formula;
    EXPECT_EQ(parsed.error().where, "Character " + refusal.substr(0, first)) << formula;
    EXPECT_THAT(parsed.error().text,
                testing::HasSubstr(refusal.substr(first + 1, last - first - 1)))
        << formula;
    EXPECT_EQ(shown(evaluate(compileFormula(formula, names, 1), SmallSheet(), 1)),
              refusal.substr(last + 1))
        << formula;
  }
}

std::string repeated(const std::string& part, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += part;
  return text;
}

TEST(FormulaText, NestingAndLengthAreBounded) {
  const SmallSheet sheet;
  const auto nested = [](const std::string& open, int times, const std::string& close) {
    return "=" + repeated(open, times) + "1" + repeated(close, times);
  };
  EXPECT_EQ(shown(sheet.value(nested("(", 64, ")"))), "1");
  EXPECT_EQ(shown(sheet.value(nested("-", 64, ""))), "1");
  EXPECT_EQ(shown(sheet.value(nested("ABS(-", 32, ")"))), "1");
  for (const char* const open : {"(", "-", "ABS(", "IF(1,"}) {
    EXPECT_EQ(shown(sheet.value(nested(open, 65, ")"))), "#SYNTAX") << open;
    EXPECT_EQ(shown(sheet.value(nested(open, 20000, ")"))), "#SYNTAX") << open;
  }
  EXPECT_EQ(shown(sheet.value("=SUM(1" + repeated(",1", 254) + ")")), "255");
  EXPECT_EQ(shown(sheet.value("=SUM(1" + repeated(",1", 255) + ")")), "#SYNTAX");
  EXPECT_TRUE(parseFormula("=1" + repeated("+1", 499), sheet.names, 1));
  EXPECT_FALSE(parseFormula("=1" + repeated("+1", 500), sheet.names, 1));
  EXPECT_EQ(shown(sheet.value("=1" + repeated("+1", 500))), "501") << "stored texts may grow";
}

}  // namespace
}  // namespace tolmer::test
