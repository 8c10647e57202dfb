#pragma once

/** Lets variables ask for ranges of fields. Called by the managers when they are made. */
void InstallFieldRanges();
