# panorel_info_plist(OUTPUT FEED KEY): the bundle's Info.plist. FEED is where the updater looks for
# new versions, KEY the public half of the key they are signed with; without both, neither is in it.
function(panorel_info_plist output feed key)
    set(calendar_reason
        "Panorel looks for meetings with a video link, to switch to the scene you chose for them.")
    set(update_keys "")
    if(feed AND key)
        foreach(text IN ITEMS feed key)
            string(REPLACE "&" "&amp;" ${text} "${${text}}")
            string(REPLACE "<" "&lt;" ${text} "${${text}}")
        endforeach()
        string(CONCAT update_keys
            "    <key>SUFeedURL</key>\n    <string>${feed}</string>\n"
            "    <key>SUPublicEDKey</key>\n    <string>${key}</string>\n")
    elseif(feed OR key)
        message(FATAL_ERROR "PANOREL_UPDATE_FEED and PANOREL_UPDATE_KEY need each other")
    endif()
    configure_file(${PROJECT_SOURCE_DIR}/Packaging/macos/Info.plist.in ${output} @ONLY)
endfunction()
