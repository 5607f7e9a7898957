#import "MacDoubles/ObjC/Snapshot.h"

@implementation Snapshot

+ (instancetype)of:(std::shared_ptr<const void>)state
{
    Snapshot *made = [[[self alloc] init] autorelease];
    made->_state = new std::shared_ptr<const void>(std::move(state));
    return made;
}

- (void)dealloc
{
    delete _state;
    [super dealloc];
}

@end
