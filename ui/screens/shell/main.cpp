#include "ui/screens/shell/ApplicationMain.h"

int main(int argc, char** argv)
{
    return applicationMain(argc, argv);
}
