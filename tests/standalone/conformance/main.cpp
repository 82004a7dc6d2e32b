#include "Show.h"

int main()
{
    showStrings();
    showArrays();
    showNames();
    showValues();
    showDateTimes();
    showObjectPaths();
    showInstances();
    showExceptions();
    showRequests();
    return 0;
}
