#include "output/ConditionKeys.h"

#include <algorithm>

namespace {

using Place = HypothesisPlace;
using enum HypothesisFiller;

constexpr Place F(std::size_t p) { return {Fields, p}; }
constexpr Place FList(std::size_t p) { return {Fields, p, true}; }
constexpr Place V(std::size_t p) { return {Values, p}; }
constexpr Place N(std::size_t p) { return {Numbers, p}; }
constexpr Place I(std::size_t p) { return {ValueIndices, p}; }
constexpr Place IList(std::size_t p) { return {ValueIndices, p, true}; }
constexpr Place T(std::size_t p) { return {ValueTexts, p}; }
constexpr Place TList(std::size_t p) { return {ValueTexts, p, true}; }
constexpr Place S(std::size_t p) { return {StandardDeviation, p}; }

// clang-format off
constexpr ConditionKey kConditionKeys[] = {
    { 1, "DefaultEqualProbabilities_O_ChiSquare_1",             {F(0)}},
    { 1, "UserSpecifiesProbabilities_O_ChiSquare_1",            {F(0)}},
    { 2, "ACutPointIsSpecified_O_Binomial_4",                   {F(0), V(1), N(2), N(3)}},
    { 2, "ABinaryTestVariableIsSpecified_O_Binomial_5",         {F(0), I(1), I(2), N(3), N(4)}},
    { 2, "CategoryListsAreSpecified_O_Binomial_5",              {F(0), TList(1), TList(2), N(3), N(4)}},
    { 3, "ABinaryTestVariableIsSpecified_O_Runs_3",             {F(0), I(1), I(2)}},
    { 3, "CategoryListsAreSpecified_O_Runs_3",                  {F(0), IList(1), IList(2)}},
    { 3, "ACutPointIsSpecified_O_Runs_2",                       {F(0), V(1)}},
    { 4, "O_WilcoxonSignedRanks_2",                             {F(0), V(1)}},
    { 5, "ACutPointIsSpecified_O_Binomial_2",                   {F(0), N(1)}},
    { 5, "ABinaryTestVariableIsSpecified_O_Binomial_2",         {F(0), T(1)}},
    { 5, "CategoryListsAreSpecified_O_Binomial_2",              {F(0), TList(1)}},
    { 6, distribution::kUniform,                                {F(0), V(1), V(2)}},
    { 6, distribution::kNormal,                                 {F(0), V(1), S(2)}},
    { 6, distribution::kPoisson,                                {F(0), V(1)}},
    { 6, distribution::kExponential,                            {F(0), V(1)}},
    {11, "R_Sign_2",                                            {F(0), F(1)}},
    {12, "R_WilcoxonSignedRanks_2",                             {F(0), F(1)}},
    {13, "DefaultAllDistinctValuesUsed_R_CochransQ_1",          {FList(0)}},
    {13, "CategoryListsAreSpecified_R_CochransQ_1",             {FList(0)}},
    {14, "CategoryListsAreSpecified_R_McNemar_2",               {F(0), F(1)}},
    {14, "AllDistinctValuesUsed_R_McNemar_2",                   {F(0), F(1)}},
    {15, "R_FriedmansTwoWayByRanks_1",                          {FList(0)}},
    {16, "R_KendallsCoefficient_1",                             {FList(0)}},
    {17, "AllDistinctValuesUsed_R_MarginalHomogeneity_2",       {F(0), F(1)}},
    {18, "R_HodgesLehman_2",                                    {F(0), F(1)}},
    {19, "AllDistinctValuesUsed_I_HodgesLehman_2",              {F(0), F(1)}},
    {19, "CategoryListsAreSpecified_I_HodgesLehman_2",          {F(0), F(1)}},
    {20, "DefaultAllDistinctValuesUsed_I_Moses_2",              {F(0), F(1)}},
    {20, "CategoryListsAreSpecified_I_Moses_2",                 {F(0), F(1)}},
    {21, "DefaultAllDistinctValuesUsed_I_MannWhitneyU_2",       {F(0), F(1)}},
    {21, "CategoryListsAreSpecified_I_MannWhitneyU_2",          {F(0), F(1)}},
    {22, "DefaultAllDistinctValuesUsed_I_WaldWolfowitzRuns_2",  {F(0), F(1)}},
    {22, "CategoryListsAreSpecified_I_WaldWolfowitzRuns_2",     {F(0), F(1)}},
    {23, "DefaultAllDistinctValuesUsed_I_KolmogorovSmirnov_2",  {F(0), F(1)}},
    {23, "CategoryListsAreSpecified_I_KolmogorovSmirnov_2",     {F(0), F(1)}},
    {24, "DefaultAllDistinctValuesUsed_I_KruskalWallis_2",      {F(0), F(1)}},
    {24, "CategoryListsAreSpecified_I_KruskalWallis_2",         {F(0), F(1)}},
    {25, "DefaultAllDistinctValuesUsed_I_JonckheereTerpstra_2", {F(0), F(1)}},
    {25, "CategoryListsAreSpecified_I_JonckheereTerpstra_2",    {F(0), F(1)}},
    {26, "DefaultAllDistinctValuesUsed_I_Median_2",             {F(0), F(1)}},
    {26, "CategoryListsAreSpecified_I_Median_2",                {F(0), F(1)}},
};
// clang-format on

constexpr bool EndsInItsNumberOfPlaces(const ConditionKey& row)
{
    return static_cast<std::size_t>(row.fKey.back() - '0') == row.Places().size();
}

static_assert(std::ranges::all_of(kConditionKeys, EndsInItsNumberOfPlaces));

}  // namespace

std::span<const ConditionKey> ConditionKeys() { return kConditionKeys; }

const ConditionKey* FindConditionKey(TestKind testKind, std::string_view key)
{
    const auto* row = std::ranges::find_if(kConditionKeys, [&](const ConditionKey& candidate) {
        return candidate.fKind == testKind && candidate.fKey == key;
    });
    return row == std::end(kConditionKeys) ? nullptr : row;
}
