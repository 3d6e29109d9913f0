#include "host/strings/PathFactory.h"

const PathFinder* PathFactory::getPathInstance(int /*kind*/)
{
    static const PathFinder kTexts("texts");
    return &kTexts;
}
