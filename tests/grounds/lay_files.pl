# Lays a hosted PC's drive over a Wine prefix's: perl lay_files.pl FROM TO
#
# Names are matched ignoring case. What is there stays: Wine's own programs and libraries have to
# work.
use strict;
use warnings;

sub folded {
    my ($name) = @_;
    utf8::decode($name);
    return lc $name;
}

sub names {
    my ($folder) = @_;
    opendir my $handle, $folder or die "lay_files: $folder: $!\n";
    return grep { !/^\.\.?$/ } readdir $handle;
}

sub copy {
    my ($from, $to) = @_;
    open my $source, '<:raw', $from or die "lay_files: $from: $!\n";
    open my $target, '>:raw', $to   or die "lay_files: $to: $!\n";
    print {$target} $_ while read $source, $_, 1 << 16;
    close $target or die "lay_files: $to: $!\n";
}

sub lay {
    my ($from, $to) = @_;
    my %there = map { folded($_) => $_ } names($to);
    for my $name (names($from)) {
        my $spelling = $there{ folded($name) } // $name;
        if (-d "$from/$name") {
            -d "$to/$spelling" or mkdir "$to/$spelling" or die "lay_files: $to/$spelling: $!\n";
            lay("$from/$name", "$to/$spelling");
        } elsif (!-e "$to/$spelling") {
            copy("$from/$name", "$to/$spelling");
        }
    }
}

lay(@ARGV);
