/* Imports the C interface as the module Swift and Objective-C see. */
#pragma clang module import Vastrel

int main(void) { return vastrel_status_text(VASTREL_OK)[0] == 'V' ? 0 : 1; }
