#include "frame/window/startup.h"

int main(int argc, char** argv) { return RunApplication(argc, argv); }
