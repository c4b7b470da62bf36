// The kinds of rows, one for each kind of control. Each keeps the functions of the control that it shows and calls a
// copy, because a call may replace the form.
#pragma once

#import "hosts/macos/form/MacFormRowView.h"

@interface MacToggleRow : MacFormRowView
@end

// The slider moves freely under the mouse, and by the control's step under the keyboard and assistive technology.
@interface MacSliderRow : MacFormRowView
@end

// A colour well whose panel offers no opacity.
@interface MacColorRow : MacFormRowView
@end

@interface MacPickerRow : MacFormRowView
@end

@interface MacListRow : MacFormRowView
@end

@interface MacMenuRow : MacFormRowView
@end

@interface MacButtonRow : MacFormRowView
@end
