#include "views/independent/KruskalWallis.h"

#include "charts/ChartWords.h"
#include "charts/TemplateText.h"

KruskalWallis::KruskalWallis(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                             const NOPROutputStats::HTIKruskalWallis* test)
    : Boxplot(dictionary, stats)
{
    SetTest("Independent-Samples Kruskal-Wallis Test", test);
}

std::vector<double> KruskalWallis::CategoryCodes(const NOPROutputStats::BoxGroup& group)
{
    return {static_cast<double>(group.fGroupIndex), group.fMeanOfRank};
}

void KruskalWallis::EditTemplate(std::string& text)
{
    const std::string popup =
        R"(<popup part="median" target="schema" tokenTemplate=")" +
        LookUpText(GetDictionary(), "Mean Rank").toUTF8() +
        R"(=$[1]$"><tokenMapping valueToken="1" variable="Tooltips"/></popup>)";
    InsertBefore(text, "</visualization>", popup);
}
