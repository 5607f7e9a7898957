// The part of ServiceManagement that the port uses, over another Foundation.
#pragma once

#import <Foundation/Foundation.h>

@interface SMAppService : NSObject
@end
@interface SMAppService (Used)
@property(class, readonly) SMAppService *mainAppService;
- (BOOL)registerAndReturnError:(NSError **)error;
- (BOOL)unregisterAndReturnError:(NSError **)error;
@end
