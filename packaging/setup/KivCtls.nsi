; The set-up program of KivCtls, for both architectures. tools/kiv/package.sh calls it with
;   VERSION  1.0.0        STAGE  the folder of what is installed        OUTPUT  the program to write
; and has written, beside STAGE, files.nsh: the macros Install_<part> and Remove_<part>, one line a file.
;
; How it is called, and what it ends with:
;   /S                 asks nothing            /D=FOLDER  goes last, without quotes
;   /AllUsers          fails where the caller is no administrator
;   /CurrentUser       for the current user only, whoever he is; without either: as much as he may
;   /SDK               with what a developer needs         /NoWorkbench  without FolioHost
;   0 done   1 given up by the user   2 failed   3 a newer version is there   4 that takes an administrator
;   5 the library is in use   6 it could not be registered

Unicode true
SetCompressor /SOLID lzma
RequestExecutionLevel highest
Name "KivCtls ${VERSION}"
OutFile "${OUTPUT}"
BrandingText "KivCtls ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey CompanyName "KivCtls developers"
VIAddVersionKey FileDescription "KivCtls set-up"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright "Copyright KivCtls developers"
VIAddVersionKey ProductName "KivCtls"
VIAddVersionKey ProductVersion "${VERSION}"

!include LogicLib.nsh
!include Sections.nsh
!include FileFunc.nsh
!include MUI2.nsh
!include WordFunc.nsh
!include x64.nsh
!include "${STAGE}/../files.nsh"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\KivCtls"
!define SHARED_KEY "Software\Microsoft\Windows\CurrentVersion\SharedDLLs"
!define FIRST_CLASS "CLSID\{3E649237-873E-11D3-BB17-00105A16D8EF}\InprocServer32"

!define EXIT_NEWER 3
!define EXIT_RIGHTS 4
!define EXIT_IN_USE 5
!define EXIT_REGISTRATION 6

Var Scope    ; all, or user
Var ForScope ; the switch of KivRegister

!define MUI_ABORTWARNING
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; Ends the program with an explanation, which a silent one gives by its exit status alone.
!macro GiveUp status text
    MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
    SetErrorLevel ${status}
    Quit
!macroend

!macro UseScope
    ${If} $Scope == all
        SetShellVarContext all
        StrCpy $ForScope ""
    ${Else}
        SetShellVarContext current
        StrCpy $ForScope "/user"
    ${EndIf}
!macroend

; A newer file that hosts are using is not to be exchanged for this one, wherever it lies. In $0 its path.
!macro RefuseNewer
    ${If} ${FileExists} "$0"
        GetDLLVersion "$0" $1 $2
        IntOp $3 $1 >> 16
        IntOp $3 $3 & 0xFFFF
        IntOp $4 $1 & 0xFFFF
        IntOp $5 $2 >> 16
        IntOp $5 $5 & 0xFFFF
        ${VersionCompare} "$3.$4.$5" "${VERSION}" $6
        ${If} $6 == 1
            !insertmacro GiveUp ${EXIT_NEWER} "KivCtls $3.$4.$5 is here already, in $0. This is ${VERSION}."
        ${EndIf}
    ${EndIf}
!macroend

!macro RefuseUsed file
    ${If} ${FileExists} "${file}"
        ClearErrors
        FileOpen $0 "${file}" a
        ${If} ${Errors}
            !insertmacro GiveUp ${EXIT_IN_USE} "${file} is in use. Close the programs that use it, and try again."
        ${EndIf}
        FileClose $0
    ${EndIf}
!macroend

; So many products use a file that is for all users; those that are no set-up programs of this one count for themselves.
!macro CountUse view file
    ${If} $Scope == all
        SetRegView ${view}
        ReadRegDWORD $0 HKLM "${SHARED_KEY}" "${file}"
        IntOp $0 $0 + 1
        WriteRegDWORD HKLM "${SHARED_KEY}" "${file}" $0
        SetRegView 32
    ${EndIf}
!macroend

; Leaves in $R0 how many others use the file.
!macro UncountUse view file
    StrCpy $R0 0
    ${If} $Scope == all
        SetRegView ${view}
        ReadRegDWORD $R0 HKLM "${SHARED_KEY}" "${file}"
        IntOp $R0 $R0 - 1
        ${If} $R0 > 0
            WriteRegDWORD HKLM "${SHARED_KEY}" "${file}" $R0
        ${Else}
            DeleteRegValue HKLM "${SHARED_KEY}" "${file}"
            StrCpy $R0 0
        ${EndIf}
        SetRegView 32
    ${EndIf}
!macroend

!macro Register arch
    ExecWait '"$INSTDIR\${arch}\KivRegister.exe" $ForScope' $0
    ${If} $0 != 0
        DetailPrint "Registering the ${arch} library failed with status $0."
        SetErrorLevel ${EXIT_REGISTRATION}
        Abort
    ${EndIf}
!macroend

; Where a file from elsewhere has taken the place of this one in the registry, that stays.
!macro Unregister arch view
    SetRegView ${view}
    ${If} $Scope == all
        ReadRegStr $0 HKLM "Software\Classes\${FIRST_CLASS}" ""
    ${Else}
        ReadRegStr $0 HKCU "Software\Classes\${FIRST_CLASS}" ""
    ${EndIf}
    SetRegView 32
    StrLen $1 "$INSTDIR\"
    StrCpy $2 $0 $1
    ${If} $0 == ""
    ${OrIf} $2 == "$INSTDIR\"
        ExecWait '"$INSTDIR\${arch}\KivRegister.exe" /u $ForScope'
    ${EndIf}
!macroend

Section "KivCtls" SectionLibrary
    SectionIn RO
    ReadRegStr $R1 SHCTX "${UNINSTALL_KEY}" "InstallLocation"
    SetOutPath "$INSTDIR"
    !insertmacro Install_common
    !insertmacro Install_x86
    ${If} ${RunningX64}
        !insertmacro Install_x64
    ${EndIf}
    ; Before what may fail, so that half of it can be taken away as well.
    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "KivCtls"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\x86\FolioHost.exe"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "KivCtls developers"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$Scope'
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$Scope /S'
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
    ; Counted once, however often it is upgraded or repaired.
    ${If} $R1 != $INSTDIR
        !insertmacro CountUse 32 "$INSTDIR\x86\KivCtls.ocx"
        ${If} ${RunningX64}
            !insertmacro CountUse 64 "$INSTDIR\x64\KivCtls.ocx"
        ${EndIf}
    ${EndIf}
    !insertmacro Register x86
    ${If} ${RunningX64}
        !insertmacro Register x64
    ${EndIf}
SectionEnd

Section "Workbench" SectionWorkbench
    !insertmacro Install_workbench
    SetOutPath "$INSTDIR\x86"
    CreateShortcut "$SMPROGRAMS\KivCtls workbench.lnk" "$INSTDIR\x86\FolioHost.exe" '"$INSTDIR\workbench\interview.form"'
SectionEnd

Section /o "SDK and samples" SectionSdk
    !insertmacro Install_sdk
SectionEnd

Section -Size
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionLibrary} "The controls, for 32-bit hosts and on 64-bit Windows for 64-bit ones as well."
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionWorkbench} "FolioHost, which shows forms with the controls and plays scripts on them."
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionSdk} "The contract, a C++ header, samples and the documents."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
    UserInfo::GetAccountType
    Pop $0
    StrCpy $Scope user
    ${If} $0 == "Admin"
        StrCpy $Scope all
    ${EndIf}
    ${GetParameters} $1
    ClearErrors
    ${GetOptions} $1 "/AllUsers" $2
    ${IfNot} ${Errors}
    ${AndIf} $Scope != all
        !insertmacro GiveUp ${EXIT_RIGHTS} "Only an administrator installs KivCtls for all users."
    ${EndIf}
    ClearErrors
    ${GetOptions} $1 "/CurrentUser" $2
    ${IfNot} ${Errors}
        StrCpy $Scope user
    ${EndIf}
    ClearErrors
    ${GetOptions} $1 "/SDK" $2
    ${IfNot} ${Errors}
        SectionSetFlags ${SectionSdk} ${SF_SELECTED}
    ${EndIf}
    ClearErrors
    ${GetOptions} $1 "/NoWorkbench" $2
    ${IfNot} ${Errors}
        SectionSetFlags ${SectionWorkbench} 0
    ${EndIf}
    !insertmacro UseScope

    ${If} $INSTDIR == ""
        ReadRegStr $INSTDIR SHCTX "${UNINSTALL_KEY}" "InstallLocation"
    ${EndIf}
    ${If} $INSTDIR == ""
        ${If} $Scope == user
            StrCpy $INSTDIR "$LOCALAPPDATA\Programs\KivCtls"
        ${ElseIf} ${RunningX64}
            StrCpy $INSTDIR "$PROGRAMFILES64\KivCtls"
        ${Else}
            StrCpy $INSTDIR "$PROGRAMFILES32\KivCtls"
        ${EndIf}
    ${EndIf}

    ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" "DisplayVersion"
    ${VersionCompare} "$0" "${VERSION}" $1
    ${If} $0 != ""
    ${AndIf} $1 == 1
        !insertmacro GiveUp ${EXIT_NEWER} "KivCtls $0 is installed already. This is ${VERSION}."
    ${EndIf}
    ReadRegStr $0 HKCR "${FIRST_CLASS}" ""
    !insertmacro RefuseNewer
    ${If} ${RunningX64}
        SetRegView 64
        ReadRegStr $0 HKCR "${FIRST_CLASS}" ""
        SetRegView 32
        ${DisableX64FSRedirection}
        !insertmacro RefuseNewer
        ${EnableX64FSRedirection}
    ${EndIf}
    !insertmacro RefuseUsed "$INSTDIR\x86\KivCtls.ocx"
    !insertmacro RefuseUsed "$INSTDIR\x64\KivCtls.ocx"
FunctionEnd

Function un.onInit
    StrCpy $Scope user
    ${GetParameters} $1
    ClearErrors
    ${GetOptions} $1 "/all" $2
    ${IfNot} ${Errors}
        StrCpy $Scope all
        UserInfo::GetAccountType
        Pop $0
        ${If} $0 != "Admin"
            !insertmacro GiveUp ${EXIT_RIGHTS} "Only an administrator takes away what is for all users."
        ${EndIf}
    ${EndIf}
    !insertmacro UseScope
FunctionEnd

Section Uninstall
    !insertmacro RefuseUsed "$INSTDIR\x86\KivCtls.ocx"
    !insertmacro RefuseUsed "$INSTDIR\x64\KivCtls.ocx"
    Delete "$SMPROGRAMS\KivCtls workbench.lnk"
    !insertmacro Remove_sdk
    !insertmacro Remove_workbench
    !insertmacro UncountUse 32 "$INSTDIR\x86\KivCtls.ocx"
    StrCpy $R1 $R0
    ${If} $R1 == 0
        !insertmacro Unregister x86 32
        !insertmacro Remove_x86
    ${EndIf}
    ${If} ${RunningX64}
        !insertmacro UncountUse 64 "$INSTDIR\x64\KivCtls.ocx"
        ${If} $R0 == 0
            !insertmacro Unregister x64 64
            !insertmacro Remove_x64
        ${Else}
            ExecWait '"$INSTDIR\x64\KivRegister.exe" $ForScope'
        ${EndIf}
    ${EndIf}
    ; The program names are those of both architectures: going, the other one has taken them along.
    ${If} $R1 != 0
        ExecWait '"$INSTDIR\x86\KivRegister.exe" $ForScope'
    ${EndIf}
    !insertmacro Remove_common
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"
    ; Last, so that whoever waits for it to go knows that all is done.
    RMDir "$INSTDIR\x64"
    RMDir "$INSTDIR\x86"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    ${If} $Scope == user
        RMDir "$LOCALAPPDATA\Programs"
    ${EndIf}
SectionEnd
