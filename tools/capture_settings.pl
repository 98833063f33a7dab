# Writes the pc.ini of a captured PC: perl capture_settings.pl DRIVE... <EXPORT
#
# EXPORT is a registry export as UTF-8 text. What it doesn't tell is as on a plain Windows PC.
use strict;
use warnings;

my @drives = @ARGV;
my $wanted = qr{\\(?:(?:Volatile\ )?Environment|Shell\ Folders|International|Wine\\Drives
                  |Windows(?:\ NT)?\\CurrentVersion|ProfileList\\S-1-5-21-[0-9-]+)$}xi;
my (%keys, %sids, @sids);

# Text data, or undef. Expandable text is written as bytes: 16-bit, in the old format 8-bit.
sub text {
    my ($data, $wide) = @_;
    my $text;
    if ($data =~ /^"(.*)"$/) {
        ($text = $1) =~ s/\\(.)/$1/g;
    } elsif ($data =~ s/^hex\(2\)://) {
        my $bytes = pack 'C*', map { hex } $data =~ /([0-9a-fA-F]{1,2})/g;
        my @units = unpack $wide ? 'v*' : 'C*', $bytes;
        $text = '';
        while (@units) {
            my $unit = shift @units;
            if ($unit >= 0xD800 && $unit < 0xE000) {
                my $low = @units ? shift @units : 0;
                my $pair = $unit < 0xDC00 && $low >= 0xDC00 && $low < 0xE000;
                $unit = $pair ? 0x10000 + (($unit - 0xD800) << 10) + $low - 0xDC00 : 0xFFFD;
            }
            $text .= chr $unit;
        }
        utf8::encode($text);
    } else {
        return undef;
    }
    $text =~ s/[\0\r\n].*//s;
    return $text;
}

my ($values, $wide);
while (my $line = <STDIN>) {
    chomp $line;
    $wide = $line !~ /^REGEDIT4/ if $. == 1;
    if ($line =~ /^\[(.+)\]\s*$/) {
        my $key = lc $1;
        if ($1 =~ /^HKEY_USERS\\(S-1-5-21-[0-9-]+)(?:\\|$)/i && !$sids{uc $1}++) { push @sids, uc $1 }
        $values = $key =~ $wanted ? ($keys{$key} //= {}) : undef;
        next;
    }
    next if !$values || $line !~ /^"((?:[^"\\]|\\.)*)"=(.*)/;
    my ($name, $data) = ($1, $2);
    while ($data =~ s/\\$// && defined(my $more = <STDIN>)) { chomp $more; $data .= $more }
    $name =~ s/\\(.)/$1/g;
    my $text = text($data, $wide);
    $values->{lc $name} = [$name, $text] if defined $text;
}

# The user who was logged on, else the first.
my ($sid) = grep { $keys{ lc "hkey_users\\$_\\volatile environment" } } @sids;
$sid //= $sids[0] // 'S-1-5-21-0-0-0-1000';
my $machine = 'hkey_local_machine';

sub of_user {
    my ($key) = @_;
    return $keys{ lc "hkey_users\\$sid\\$key" } // $keys{ lc "hkey_current_user\\$key" } // {};
}

sub of_machine {
    my ($key) = @_;
    return $keys{ lc "$machine\\$key" } // {};
}

sub value {
    my ($values, $name, $default) = @_;
    return ($values->{ lc $name } // [])->[1] // $default;
}

my $nt      = of_machine('Software\Microsoft\Windows NT\CurrentVersion');
my $version = of_machine('Software\Microsoft\Windows\CurrentVersion');
my $profile = of_machine("Software\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList\\$sid");
my $root    = value($nt, 'SystemRoot', 'C:\windows');
my $home    = value($profile, 'ProfileImagePath', '%SystemDrive%\users\%USERNAME%');
$root = 'C:\windows' if $root !~ /^[A-Za-z]:\\/;
my %environment;

sub set {
    my ($name, $value) = @_;
    return if $name !~ /^[^=\[;#\s][^=]*$/;
    $environment{ lc $name } = [$name, $value];
}

set(@$_) for (
    ['SystemDrive', substr($root, 0, 2)], ['SystemRoot', $root], ['windir', '%SystemRoot%'],
    ['ProgramFiles', value($version, 'ProgramFilesDir', '%SystemDrive%\Program Files')],
    ['CommonProgramFiles', value($version, 'CommonFilesDir', '%ProgramFiles%\Common Files')],
    ['ProgramData', '%SystemDrive%\ProgramData'], ['ALLUSERSPROFILE', '%ProgramData%'],
    ['PUBLIC', '%SystemDrive%\users\Public'], ['USERNAME', 'User'], ['USERPROFILE', $home],
    ['APPDATA', '%USERPROFILE%\AppData\Roaming'], ['LOCALAPPDATA', '%USERPROFILE%\AppData\Local'],
    ['TEMP', '%LOCALAPPDATA%\Temp'], ['TMP', '%LOCALAPPDATA%\Temp'],
    ['ComSpec', '%SystemRoot%\system32\cmd.exe'], ['PATH', '%SystemRoot%\system32;%SystemRoot%'],
);
for my $set ('CurrentControlSet', 'ControlSet001') {
    my $variables = $keys{ lc "$machine\\System\\$set\\Control\\Session Manager\\Environment" } // next;
    # The service account's own, while no user is logged on.
    set(@$_) for grep { $_->[0] !~ /^USERNAME$/i } values %$variables;
    last;
}
for my $key ('Volatile Environment', 'Environment') {
    for my $variable (values %{ of_user($key) }) {
        my ($name, $value) = @$variable;
        # A user's search path comes behind the machine's.
        $value = "$environment{path}[1];$value" if lc $name eq 'path';
        set($name, $value);
    }
}

# With the variables that are known; a variable does not stand for itself.
sub expanded {
    my ($value, $self) = @_;
    for (1 .. 5) {
        last
          if !($value =~
            s/%([^%]+)%/lc $1 ne $self && $environment{lc $1} ? $environment{lc $1}[1] : "%$1%"/ge);
    }
    return $value;
}

sub folder {
    my ($name, $values, $in_registry, $default) = @_;
    my $path = expanded(value($values, $in_registry, ''), '');
    $path = expanded($default, '') if $path !~ /^[A-Za-z]:\\/;
    print "$name=$path\n";
}

print "; Captured from another PC.\n\n[environment]\n";
for my $key (sort keys %environment) {
    my ($name, $value) = @{ $environment{$key} };
    print "$name=", expanded($value, $key), "\n";
}
my $explorer = 'Software\Microsoft\Windows\CurrentVersion\Explorer\Shell Folders';
my ($user_folders, $common_folders) = (of_user($explorer), of_machine($explorer));
my $menu = 'Microsoft\Windows\Start Menu';
print "\n[folders]\n";
folder('windows',           {},              '',                  '%SystemRoot%');
folder('fonts',             $user_folders,   'Fonts',             '%SystemRoot%\Fonts');
folder('desktop',           $user_folders,   'Desktop',           '%USERPROFILE%\Desktop');
folder('start menu',        $user_folders,   'Start Menu',        "%APPDATA%\\$menu");
folder('startup',           $user_folders,   'Startup',           "%APPDATA%\\$menu\\Programs\\Startup");
folder('common start menu', $common_folders, 'Common Start Menu', "%ProgramData%\\$menu");
folder('common startup',    $common_folders, 'Common Startup',
    "%ProgramData%\\$menu\\Programs\\Startup");

my $locale = of_user('Control Panel\International');
print "\n[user]\nsid=$sid\nname=", expanded('%USERNAME%', ''), "\n";
print "\n[locale]\nshort date=", value($locale, 'sShortDate', '') || 'M/d/yyyy', "\n";
print 'time=', value($locale, 'sTimeFormat', '') || 'h:mm:ss tt', "\ncode page=1252\n\n[drives]\n";

my %kinds = (cdrom => 'cdrom', floppy => 'removable', network => 'network');
my $wine = of_machine('Software\Wine\Drives');
print "$_=", $kinds{ value($wine, "$_:", '') } // 'fixed', "\n" for @drives;
print "\n[program]\nfolder=C:\\Program Files\\Tidemark\n";
