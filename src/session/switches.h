#pragma once

namespace commtest {

// What a face has or lacks. A control that it lacks does nothing.
struct Switches {
    // Function 10 and the choice of WriteType. Without it a flow meter's value of four bytes goes out as two
    // frames, one a word.
    bool multiRegisterWrite = true;
    bool intervalTimer = true;           // TimeSetup
    bool catalogueModeSwitch = true;     // the double click on the first panel of the status bar
    bool instrumentTypeHandling = true;  // 相 and 流量计 in the name, in the replies of RTU instruments
    bool everyListProtocol = true;       // an import knows the codes 23 and 35, too
    bool chipDescription = true;         // ConCpudataText
    bool valueColumnLayout = true;       // the face's settings table lays out columns 6 to 10, too
};

}  // namespace commtest
