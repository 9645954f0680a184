; What the user chooses: on the command line, else on the one page before the installation.

Var MakeSaver  ; 1 when Ambrio is to become this user's screen saver
Var ForAllButton
Var ForOneButton
Var SaverBox

; What follows, up to ${EndIf}, when this switch is on the command line in $2.
!macro IfAsked SWITCH
    ClearErrors
    ${GetOptions} $2 "${SWITCH}" $3
    ${IfNot} ${Errors}
!macroend

; Where it is installed already it stays; else it is for everybody, in a silent installation only with
; the rights for it.
Function TakeChoices
    ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "UninstallString"
    ReadRegStr $1 HKCU "${UNINSTALL_KEY}" "UninstallString"
    ${If} $0 != ""
        StrCpy $ForEverybody 1
    ${ElseIf} $1 != ""
        StrCpy $ForEverybody 0
    ${ElseIf} ${Silent}
        Call HasRights
        Pop $ForEverybody
    ${Else}
        StrCpy $ForEverybody 1
    ${EndIf}

    ${GetParameters} $2
    !insertmacro IfAsked "/AllUsers"
        StrCpy $ForEverybody 1
    ${EndIf}
    !insertmacro IfAsked "/CurrentUser"
        StrCpy $ForEverybody 0
    ${EndIf}

    ; Where it is for everybody the display settings list it in any case.
    StrCpy $MakeSaver 1
    ${If} ${Silent}
    ${AndIf} $ForEverybody = 1
        StrCpy $MakeSaver 0
    ${EndIf}
    !insertmacro IfAsked "/MakeSaver"
        StrCpy $MakeSaver 1
    ${EndIf}
    !insertmacro IfAsked "/KeepSaver"
        StrCpy $MakeSaver 0
    ${EndIf}
FunctionEnd

Function ChoicePage
    !insertmacro MUI_HEADER_TEXT "Install ${NAME} ${VERSION}" "${DESCRIPTION}."
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateLabel} 0 0 100% 12u "Who is ${NAME} for?"
    Pop $0
    ${NSD_CreateRadioButton} 0 14u 100% 12u "&Everybody who uses this computer (needs an administrator)"
    Pop $ForAllButton
    ${NSD_AddStyle} $ForAllButton ${WS_GROUP}
    ${NSD_OnClick} $ForAllButton OnMode
    ${NSD_CreateLabel} 12u 27u 95% 18u "The screen saver settings list it among the others."
    Pop $0
    ${NSD_CreateRadioButton} 0 46u 100% 12u "&Only me"
    Pop $ForOneButton
    ${NSD_OnClick} $ForOneButton OnMode
    ${NSD_CreateLabel} 12u 59u 95% 18u "The screen saver settings list it as long as it is the chosen one."
    Pop $0
    ${NSD_CreateCheckBox} 0 86u 100% 12u "Make ${NAME} &my screen saver"
    Pop $SaverBox
    ${NSD_AddStyle} $SaverBox ${WS_GROUP}
    Call IsSaverDecided
    Pop $0
    ${If} $0 = 1
        StrCpy $MakeSaver 0
        EnableWindow $SaverBox 0
        ${NSD_CreateLabel} 12u 99u 95% 18u "An administrator decides which screen saver this computer has."
    ${Else}
        ${NSD_CreateLabel} 12u 99u 95% 18u "The time after which it starts stays as it is. Removing ${NAME} brings the present one back."
    ${EndIf}
    Pop $0
    ${If} $ForEverybody = 1
        ${NSD_Check} $ForAllButton
        ${NSD_SetFocus} $ForAllButton
    ${Else}
        ${NSD_Check} $ForOneButton
        ${NSD_SetFocus} $ForOneButton
    ${EndIf}
    ${NSD_SetState} $SaverBox $MakeSaver
    Call ShowShield
    nsDialogs::Show
FunctionEnd

Function OnMode
    Pop $0
    ${NSD_GetState} $ForAllButton $ForEverybody
    Call ShowShield
FunctionEnd

; On the button that goes on, where the system will ask for rights.
Function ShowShield
    Call HasRights
    Pop $0
    ${If} $0 = 0
        GetDlgItem $1 $HWNDPARENT 1
        SendMessage $1 ${BCM_SETSHIELD} 0 $ForEverybody
    ${EndIf}
FunctionEnd

Function ChoicePageLeave
    ${NSD_GetState} $ForAllButton $ForEverybody
    ${NSD_GetState} $SaverBox $MakeSaver
    Call FindPlace
FunctionEnd
