#pragma once

/**
 * The whole life of the process, from the arguments to the exit status: --help and --version answer
 * without a display; two or more arguments are the command-line run of a module; everything else opens the
 * window. The factories of the modules must be registered before (CModuleRegistry::SetFactory).
 *
 * @return the status of the event loop or of the module's run; 1 for an unknown module; 0 after an
 *         exception that nobody caught, whose text goes to standard error
 */
int RunApplication(int argc, char** argv);
