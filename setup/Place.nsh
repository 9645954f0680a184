; Where an installation has its parts, and what the system is told of it.

Var Is64Bit ; 1 when the 64-bit program is the one for this machine

; On 64-bit processors of the usual kind, and on others from Windows 11 on, which runs it as well.
Function FindProcessor
    StrCpy $Is64Bit 0
    ${If} ${IsNativeAMD64}
        StrCpy $Is64Bit 1
    ${ElseIf} ${IsNativeARM64}
    ${AndIf} ${AtLeastBuild} 22000
        StrCpy $Is64Bit 1
    ${EndIf}
FunctionEnd

!macro ChooseRegistryView
    ${If} ${RunningX64}
        SetRegView 64
    ${EndIf}
!macroend

; Both for the installer and for the remover.
!macro PlaceFunctions UN
    ; What is for everybody has the program in the Windows folder, all else in a folder of its own.
    Function ${UN}PlaceOf
        ${If} $ForEverybody = 1
            SetShellVarContext all
            StrCpy $ProgramFolder "$WINDIR"
            ${If} ${RunningX64}
                StrCpy $INSTDIR "$PROGRAMFILES64\${NAME}"
            ${Else}
                StrCpy $INSTDIR "$PROGRAMFILES32\${NAME}"
            ${EndIf}
        ${Else}
            SetShellVarContext current
            StrCpy $INSTDIR "$LOCALAPPDATA\Programs\${NAME}"
            StrCpy $ProgramFolder "$INSTDIR"
        ${EndIf}
    FunctionEnd

    ; Leaves 1 on the stack when the Windows folder may be written.
    Function ${UN}HasRights
        UserInfo::GetAccountType
        Pop $0
        ${If} $0 == "Admin"
            Push 1
        ${Else}
            Push 0
        ${EndIf}
    FunctionEnd
!macroend
!insertmacro PlaceFunctions ""
!insertmacro PlaceFunctions "un."

Function FindPlace
    Call PlaceOf
FunctionEnd

; The remover lies in the folder of what it removes.
Function un.FindPlace
    StrCpy $1 "$INSTDIR"
    StrCpy $ForEverybody 1
    Call un.PlaceOf
    ${IfNot} $1 == $INSTDIR
        StrCpy $ForEverybody 0
        Call un.PlaceOf
    ${EndIf}
FunctionEnd

!macro WriteValue KIND NAME VALUE
    ${If} $ForEverybody = 1
        WriteReg${KIND} HKLM "${UNINSTALL_KEY}" "${NAME}" ${VALUE}
    ${Else}
        WriteReg${KIND} HKCU "${UNINSTALL_KEY}" "${NAME}" ${VALUE}
    ${EndIf}
!macroend

Function RegisterUninstaller
    !insertmacro WriteValue Str "DisplayName" `"${NAME}"`
    !insertmacro WriteValue Str "UninstallString" `'"$INSTDIR\Uninstall.exe"'`
    !insertmacro WriteValue Str "QuietUninstallString" `'"$INSTDIR\Uninstall.exe" /S'`
FunctionEnd

Function RegisterVersion
    !insertmacro WriteValue Str "DisplayIcon" `"$ProgramFolder\Ambrio.scr,0"`
    !insertmacro WriteValue Str "Publisher" `"${PUBLISHER}"`
    !insertmacro WriteValue Str "Comments" `"${DESCRIPTION}"`
    !insertmacro WriteValue Str "InstallLocation" `"$INSTDIR"`
    !insertmacro WriteValue DWORD "NoModify" 1
    !insertmacro WriteValue DWORD "NoRepair" 1
    ${If} $Is64Bit = 1
        !insertmacro WriteValue DWORD "EstimatedSize" ${KILOBYTES_64}
    ${Else}
        !insertmacro WriteValue DWORD "EstimatedSize" ${KILOBYTES_32}
    ${EndIf}
    !insertmacro WriteValue Str "DisplayVersion" `"${VERSION}"`
FunctionEnd

Function un.Unregister
    ${If} $ForEverybody = 1
        DeleteRegKey HKLM "${UNINSTALL_KEY}"
    ${Else}
        DeleteRegKey HKCU "${UNINSTALL_KEY}"
    ${EndIf}
FunctionEnd

; To AmbrioStart, as the system would start a screen saver that a shortcut names with "/S", whatever
; the shortcut says.
Function AddToStartMenu
    CreateDirectory "$SMPROGRAMS\${NAME}"
    SetOutPath "$ProgramFolder" ; where the shortcuts start
    CreateShortcut "$SMPROGRAMS\${NAME}\Configure ${NAME}.lnk" "$INSTDIR\AmbrioStart.exe" "/C" \
        "$ProgramFolder\Ambrio.scr" 0 SW_SHOWNORMAL "" "What is backed up, and where to"
    CreateShortcut "$SMPROGRAMS\${NAME}\Back up now.lnk" "$INSTDIR\AmbrioStart.exe" "/D" \
        "$ProgramFolder\Ambrio.scr" 0 SW_SHOWNORMAL "" "Backs up all ticked Sets, in a window"
    CreateShortcut "$SMPROGRAMS\${NAME}\${NAME} Help.lnk" "$ProgramFolder\Ambrio.html"
FunctionEnd

Function un.RemoveFromStartMenu
    Delete "$SMPROGRAMS\${NAME}\Configure ${NAME}.lnk"
    Delete "$SMPROGRAMS\${NAME}\Back up now.lnk"
    Delete "$SMPROGRAMS\${NAME}\${NAME} Help.lnk"
    RMDir "$SMPROGRAMS\${NAME}"
FunctionEnd
