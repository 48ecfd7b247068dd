#include "catalogue/tool/Checks.h"

namespace catalogue {

Problems problemsOf(const Catalogue& catalogue)
{
    Problems problems;
    checkNames(catalogue, problems);
    checkTexts(catalogue, problems);
    checkParameters(catalogue, problems);
    checkMemory(catalogue, problems);
    checkCopies(catalogue, problems);
    return sorted(std::move(problems));
}

} // namespace catalogue
